#include "Print.h"
#include "Host.h"
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace velmorath {

namespace {

/// "d.ddde±xx" with as few digits as read back as the same number.
std::string shortestScientific(double value)
{
    char text[40];
    for (int digits = 0; digits <= 17; ++digits) {
        std::snprintf(text, sizeof text, "%.*e", digits, value);
        if (std::strtod(text, nullptr) == value)
            break;
    }
    return text;
}

std::string valueDescription(const PropertyList& value)
{
    if (const std::string* string = value.string())
        return *string;
    if (const auto integer = value.integer())
        return std::to_string(*integer);
    if (const auto real = value.real())
        return description(*real);
    if (const auto boolean = value.boolean())
        return *boolean ? "1" : "0";
    if (const PropertyList::Dictionary* dictionary = value.dictionary())
        return description(*dictionary);
    if (const PropertyList::Array* array = value.array())
        return "(" + std::to_string(array->size()) + " values)";
    const std::string& bytes = value.data() ? *value.data() : *value.stored();
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

    const std::string scientific = shortestScientific(std::fabs(value));
    const std::size_t mark = scientific.find('e');
    const int exponent = std::atoi(scientific.c_str() + mark + 1);
    std::string digits = scientific.substr(0, 1);
    if (mark > 2)
        digits += scientific.substr(2, mark - 2);

    const std::string sign = std::signbit(value) ? "-" : "";
    const int count = static_cast<int>(digits.size());
    if (exponent < -4 || exponent > 15)
        return sign + scientific;
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
