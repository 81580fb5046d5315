#include "Print.h"
#include "Host.h"
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>

namespace velmorath {

namespace {

/// The digits of a number times a power of two or five. (What the C library has for real numbers would make
/// up a fifteenth of the page.)
std::string digitsOf(std::uint64_t number, unsigned base, int power)
{
    std::string digits = std::to_string(number);
    while (power > 0) {
        std::uint64_t factor = 1;
        for (int i = 0; i < 20 && power > 0; ++i, --power)
            factor *= base;
        std::uint64_t carry = 0;
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, carry /= 10) {
            carry += static_cast<std::uint64_t>(*digit - '0') * factor;
            *digit = static_cast<char>('0' + carry % 10);
        }
        for (; carry > 0; carry /= 10)
            digits.insert(digits.begin(), static_cast<char>('0' + carry % 10));
    }
    return digits;
}

/// The digits rounded to so many, and zeros after them.
std::string rounded(const std::string& digits, std::size_t count)
{
    std::string result = digits.substr(0, count);
    const bool isHalf = digits.find_first_not_of('0', count + 1) == std::string::npos && digits[count] == '5';
    if (isHalf ? (result.back() - '0') % 2 == 1 : digits[count] >= '5') {
        std::size_t place = count - 1;
        for (; result[place] == '9'; --place)
            result[place] = '0';
        ++result[place];
    }
    return result + std::string(digits.size() - count, '0');
}

/// As few digits as are nearer to this number, which is above zero, than to any other, and the exponent of
/// the first of them.
std::pair<std::string, int> shortestDecimal(double value)
{
    int exponent = 0;
    const auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(value, &exponent), 53));
    // A quarter of the last place is the unit: what lies half-way to the neighbours is whole. Very small
    // numbers have fewer places, and the number below a power of two is nearer.
    exponent = std::max(exponent - 53, -1074) - 2;
    const auto units = static_cast<std::uint64_t>(std::ldexp(value, -exponent));
    const bool isPower = mantissa == std::uint64_t{1} << 52 && exponent > -1076;
    const auto scaled = [exponent](std::uint64_t number) {
        return exponent < 0 ? digitsOf(number, 5, -exponent) : digitsOf(number, 2, exponent);
    };
    std::string exact = scaled(units);
    std::string lowest = scaled(units - (isPower ? 1 : 2));
    std::string highest = scaled(units + 2);
    // One zero in front, for what is rounded up.
    const std::size_t size = std::max({exact.size(), lowest.size(), highest.size()}) + 1;
    for (std::string* digits : {&exact, &lowest, &highest})
        digits->insert(0, size - digits->size(), '0');
    const std::size_t first = exact.find_first_not_of('0');
    const bool includesEnds = units / 4 % 2 == 0;
    const auto isNear = [&](const std::string& digits) {
        return includesEnds ? lowest <= digits && digits <= highest : lowest < digits && digits < highest;
    };
    std::string digits;
    for (std::size_t count = first + 1; !isNear(digits); ++count) {
        digits = rounded(exact, count);
        // Above a power of two there is room for more than what is nearest.
        if (isPower && !isNear(digits))
            digits = highest.substr(0, count) + std::string(size - count, '0');
    }
    const std::size_t begin = digits.find_first_not_of('0');
    const auto places = static_cast<int>(size - begin) - 1;
    digits = digits.substr(begin, digits.find_last_not_of('0') - begin + 1);
    return {digits, places + std::min(exponent, 0)};
}

std::string valueDescription(const PropertyList& value)
{
    if (const std::string* string = value.string())
        return *string;
    if (const auto* integer = value.as<std::int64_t>())
        return std::to_string(*integer);
    if (const auto* real = value.as<double>())
        return description(*real);
    if (const auto* boolean = value.as<bool>())
        return *boolean ? "1" : "0";
    if (const PropertyList::Dictionary* dictionary = value.dictionary())
        return description(*dictionary);
    if (const auto* array = value.as<PropertyList::Array>())
        return "(" + std::to_string(array->size()) + " values)";
    const auto* data = value.as<PropertyList::Data>();
    const std::string& bytes = data ? data->bytes : value.as<PropertyList::Stored>()->bytes;
    return "<" + std::to_string(bytes.size()) + " bytes>";
}

} // namespace

void print(std::string_view line)
{
    Host::current().console().writeLine(line);
}

std::string description(double value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";

    const std::string sign = std::signbit(value) ? "-" : "";
    if (value == 0)
        return sign + "0.0";
    auto [digits, exponent] = shortestDecimal(std::fabs(value));
    const int count = static_cast<int>(digits.size());
    if (exponent < -4 || exponent > 15) {
        if (count > 1)
            digits.insert(1, ".");
        const std::string power = std::to_string(std::abs(exponent));
        return sign + digits + (exponent < 0 ? "e-" : "e+") + (power.size() < 2 ? "0" : "") + power;
    }
    if (exponent < 0)
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    if (count <= exponent + 1)
        return sign + digits + std::string(static_cast<std::size_t>(exponent + 1 - count), '0') + ".0";
    digits.insert(static_cast<std::size_t>(exponent + 1), ".");
    return sign + digits;
}

std::string description(const PropertyList::Dictionary& dictionary)
{
    std::string text = "{\n";
    for (const auto& [key, value] : dictionary)
        text += "    " + key + " = " + valueDescription(value) + ";\n";
    return text + "}";
}

} // namespace velmorath
