#include "Print.h"
#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
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

TEST(PrintTest, NumbersHaveTheDigitsThatTellThemFromAllOthers)
{
    std::mt19937_64 random(7);
    std::vector<double> numbers{5e-324, 2.2250738585072014e-308, 2.225073858507201e-308, 9007199254740993.0,
        1.7976931348623157e308, 1e23, 9.5e-7, 4.35, 2.0 / 3};
    for (int power = -1074; power < 1024; ++power)
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
        char shortest[40];
        const auto end = std::to_chars(shortest, std::end(shortest), number, std::chars_format::scientific);
        std::string digits = text.substr(0, text.find('e'));
        std::string wantedDigits(shortest, std::find(shortest, end.ptr, 'e'));
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
