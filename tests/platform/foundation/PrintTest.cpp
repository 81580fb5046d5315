#include "Print.h"
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace velmorath {

namespace {

TEST(PrintTest, NumbersLookAsPeopleWriteThem)
{
    EXPECT_EQ(description(0.0), "0.0");
    EXPECT_EQ(description(-0.0), "-0.0");
    EXPECT_EQ(description(0.0001), "0.0001");
    EXPECT_EQ(description(0.00001), "1e-05");
    EXPECT_EQ(description(9999999999999998.0), "9999999999999998.0");
    EXPECT_EQ(description(12e15), "1.2e+16");
    EXPECT_EQ(description(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(description(std::nan("")), "nan");
}

/// How many digits the C library needs for a number that reads back as the same.
std::string fewestDigits(double value)
{
    char text[40];
    for (int digits = 0; digits <= 17; ++digits) {
        std::snprintf(text, sizeof text, "%.*e", digits, value);
        if (std::strtod(text, nullptr) == value)
            break;
    }
    return text;
}

TEST(PrintTest, NumbersHaveTheDigitsThatTellThemFromAllOthers)
{
    std::mt19937_64 random(7);
    std::vector<double> numbers{5e-324, 2.2250738585072014e-308, 2.225073858507201e-308, 9007199254740993.0,
        1.7976931348623157e308, 1e23, 9.5e-7, 4.35, 2.0 / 3};
    for (int power = -1074; power < 1024; power += 3)
        numbers.push_back(std::ldexp(1.0, power));
    for (int i = 0; i < 3000; ++i) {
        numbers.push_back(std::bit_cast<double>(random() >> 1));
        numbers.push_back(static_cast<double>(random() % 1000000) / 64);
        numbers.push_back(static_cast<double>(random() % 1000000) / 1000);
    }
    for (const double number : numbers) {
        if (!std::isfinite(number) || number == 0)
            continue;
        const std::string text = description(number);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), number) << text;
        const std::string wanted = fewestDigits(number);
        std::string digits = text.substr(0, text.find('e'));
        std::string wantedDigits = wanted.substr(0, wanted.find('e'));
        for (std::string* each : {&digits, &wantedDigits}) {
            std::erase(*each, '.');
            each->erase(0, each->find_first_not_of('0'));
            each->erase(each->find_last_not_of('0') + 1);
        }
        EXPECT_EQ(digits, wantedDigits) << text;
    }
}

} // namespace

} // namespace velmorath
