#include "Unicode.h"
#include <cstddef>

namespace velmorath {
namespace {

unsigned char byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

void appendUnit(std::string& bytes, char32_t unit)
{
    bytes += static_cast<char>(unit >> 8);
    bytes += static_cast<char>(unit & 0xFF);
}

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

bool isASCII(std::string_view bytes)
{
    // Without an early end the compiler looks at many bytes at once.
    unsigned char all = 0;
    for (char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

char32_t takeCharacter(std::string_view& utf8)
{
    auto first = byteAt(utf8, 0);
    std::size_t length = first < 0x80 ? 1
        : first < 0xC2                ? 0
        : first < 0xE0                ? 2
        : first < 0xF0                ? 3
        : first < 0xF5                ? 4
                                      : 0;
    if (length < 2) {
        utf8.remove_prefix(1);
        return length == 1 ? first : replacementCharacter;
    }
    char32_t character = first & (0x7Fu >> length);
    std::size_t taken = 1;
    for (; taken < length && taken < utf8.size(); ++taken) {
        unsigned char lowest = taken > 1 ? 0x80 : first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        unsigned char highest = taken > 1 ? 0xBF : first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        auto next = byteAt(utf8, taken);
        if (next < lowest || next > highest)
            break;
        character = (character << 6) | (next & 0x3Fu);
    }
    utf8.remove_prefix(taken);
    return taken == length ? character : replacementCharacter;
}

void appendUTF8(std::string& text, char32_t character)
{
    auto continuation = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += continuation(character);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += continuation(character >> 6);
        text += continuation(character);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        text += continuation(character >> 12);
        text += continuation(character >> 6);
        text += continuation(character);
    }
}

std::string validUTF8(std::string_view text)
{
    if (isASCII(text))
        return std::string(text);
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty())
        appendUTF8(valid, takeCharacter(text));
    return valid;
}

std::string utf16FromUTF8(std::string_view utf8)
{
    std::string bytes;
    bytes.reserve(utf8.size() * 2);
    while (!utf8.empty()) {
        auto character = takeCharacter(utf8);
        if (character >= 0x10000) {
            appendUnit(bytes, 0xD800 + ((character - 0x10000) >> 10));
            character = 0xDC00 + ((character - 0x10000) & 0x3FF);
        }
        appendUnit(bytes, character);
    }
    return bytes;
}

std::string utf8FromUTF16(std::string_view bytes)
{
    auto unitAt = [bytes](std::size_t index) -> char32_t {
        return index + 1 < bytes.size() ? (byteAt(bytes, index) << 8u) | byteAt(bytes, index + 1) : 0;
    };
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        auto unit = unitAt(index);
        if (isHighSurrogate(unit) && isLowSurrogate(unitAt(index + 2))) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (unitAt(index + 2) - 0xDC00);
            index += 2;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            unit = replacementCharacter;
        }
        appendUTF8(text, unit);
    }
    return text;
}

} // namespace velmorath
