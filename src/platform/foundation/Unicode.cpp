#include "Unicode.h"
#include <cstdint>
#include <cstring>

namespace velmorath {
namespace {

unsigned char byteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

constexpr std::size_t longestCharacter = 4;

// Returns how many bytes it has written.
std::size_t putUTF8(char* bytes, char32_t character)
{
    const std::size_t length = character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    constexpr char32_t marks[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (std::size_t index = length - 1; index > 0; --index, character >>= 6)
        bytes[index] = static_cast<char>(0x80 | (character & 0x3F));
    bytes[0] = static_cast<char>(marks[length] | character);
    return length;
}

char* putUnit(char* bytes, char32_t unit)
{
    bytes[0] = static_cast<char>(unit >> 8);
    bytes[1] = static_cast<char>(unit & 0xFF);
    return bytes + 2;
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
    // Many bytes at once.
    std::uint64_t all = 0;
    for (; bytes.size() >= sizeof all; bytes.remove_prefix(sizeof all)) {
        std::uint64_t some;
        std::memcpy(&some, bytes.data(), sizeof some);
        all |= some;
    }
    for (char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return (all & 0x8080808080808080) == 0;
}

char32_t takeCharacter(std::string_view& utf8)
{
    auto take = [&utf8] {
        auto byte = static_cast<unsigned char>(utf8[0]);
        utf8.remove_prefix(1);
        return byte;
    };
    auto first = take();
    if (first < 0xC2 || first > 0xF4)
        return first < 0x80 ? first : replacementCharacter;
    // What a second byte must be: neither more bytes than needed, nor a surrogate, nor beyond the last
    // character.
    auto lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    auto highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    int left = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t character = first & (0x3Fu >> left);
    for (; left > 0; --left) {
        if (utf8.empty() || byteAt(utf8, 0) < lowest || byteAt(utf8, 0) > highest)
            return replacementCharacter;
        character = (character << 6) | (take() & 0x3Fu);
        lowest = 0x80;
        highest = 0xBF;
    }
    return character;
}

void appendUTF8(std::string& text, char32_t character)
{
    char bytes[longestCharacter];
    text.append(bytes, putUTF8(bytes, character));
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

[[gnu::flatten]] void appendUTF16(std::string& bytes, std::string_view utf8)
{
    // No character has more units than bytes.
    auto start = bytes.size();
    bytes.resize(start + utf8.size() * 2);
    char* end = bytes.data() + start;
    while (!utf8.empty()) {
        auto character = takeCharacter(utf8);
        if (character >= 0x10000) {
            end = putUnit(end, 0xD800 + ((character - 0x10000) >> 10));
            character = 0xDC00 + ((character - 0x10000) & 0x3FF);
        }
        end = putUnit(end, character);
    }
    bytes.resize(static_cast<std::size_t>(end - bytes.data()));
}

std::string utf8FromUTF16(std::string_view bytes)
{
    auto unitAt = [bytes](std::size_t index) -> char32_t {
        return index + 1 < bytes.size() ? (byteAt(bytes, index) << 8u) | byteAt(bytes, index + 1) : 0;
    };
    // By way of a small buffer, so that a text of usual length is allocated once and at its size.
    std::string text;
    char buffer[512];
    std::size_t used = 0;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        auto unit = unitAt(index);
        if (isHighSurrogate(unit) && isLowSurrogate(unitAt(index + 2))) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (unitAt(index + 2) - 0xDC00);
            index += 2;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            unit = replacementCharacter;
        }
        used += putUTF8(buffer + used, unit);
        if (used + longestCharacter > sizeof buffer) {
            text.append(buffer, used);
            used = 0;
        }
    }
    text.append(buffer, used);
    return text;
}

} // namespace velmorath
