#include "URL.h"
#include "Unicode.h"
#include <algorithm>

namespace velmorath {

namespace {

bool isHexadecimal(char c)
{
    return isASCIIDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isOneOf(std::string_view characters, char c)
{
    return characters.find(c) != std::string_view::npos;
}

bool isScheme(std::string_view text)
{
    return !text.empty() && isASCIILetter(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
        return isASCIILetter(c) || isASCIIDigit(c) || isOneOf("+-.", c);
    });
}

bool isUnreserved(char c)
{
    return isASCIILetter(c) || isASCIIDigit(c) || isOneOf("-._~", c);
}

bool isEncoded(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape =
            text[i] == '%' && i + 2 < text.size() && isHexadecimal(text[i + 1]) && isHexadecimal(text[i + 2]);
        if (!isEscape && !isUnreserved(text[i]) && !isOneOf(":/?#[]@!$&'()*+,;=", text[i]))
            return false;
    }
    return true;
}

} // namespace

std::optional<URL> URL::parse(std::string text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || colon + 1 == text.size())
        return {};
    const std::string_view all = text;
    if (!isScheme(all.substr(0, colon)) || !isEncoded(all.substr(colon + 1)))
        return {};
    return URL(std::move(text));
}

std::string percentEncoded(std::string_view utf8)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : utf8) {
        if (isUnreserved(c)) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += '%';
        encoded += digits[byte >> 4];
        encoded += digits[byte & 15];
    }
    return encoded;
}

} // namespace velmorath
