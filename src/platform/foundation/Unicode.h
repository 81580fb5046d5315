#pragma once

#include <string>
#include <string_view>

namespace velmorath {

/// What stands in for text that cannot be read.
constexpr char32_t replacementCharacter = 0xFFFD;

bool isASCII(std::string_view bytes);

/// Of ASCII, whatever the C library's locale is.
constexpr bool isASCIILetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool isASCIIDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes one character off the front of a UTF-8 text that is not empty. Bytes that are no character give
/// the replacement character.
char32_t takeCharacter(std::string_view& utf8);

void appendUTF8(std::string&, char32_t character);

/// The same text with the replacement character for whatever is not UTF-8 in it.
std::string validUTF8(std::string_view);

/// UTF-16, the most significant byte first.
void appendUTF16(std::string& bytes, std::string_view utf8);
/// A last odd byte is left out; halves of characters give the replacement character.
std::string utf8FromUTF16(std::string_view bytes);

} // namespace velmorath
