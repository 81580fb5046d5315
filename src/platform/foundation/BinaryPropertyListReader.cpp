#include "BinaryPropertyListReader.h"
#include "BitCast.h"
#include "Unicode.h"
#include <limits>

namespace velmorath {
namespace {

using Object = BinaryPropertyListReader::Object;
using Kind = BinaryPropertyListReader::Kind;

constexpr std::string_view magic = "bplist00";
constexpr std::size_t trailerSize = 32;

// The most significant byte first, at most eight of them.
std::uint64_t number(const char* bytes, std::size_t size)
{
    auto byte = [bytes](
                    std::size_t index) { return std::uint32_t(static_cast<unsigned char>(bytes[index])); };
    // By far the most frequent size, written so that the compiler makes one instruction of it.
    if (size == 4)
        return byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
    std::uint64_t value = 0;
    for (std::size_t index = 0; index < size; ++index)
        value = (value << 8) | byte(index);
    return value;
}

std::string_view take(std::string_view& bytes, std::size_t count)
{
    auto taken = bytes.substr(0, count);
    bytes.remove_prefix(count);
    return taken;
}

Object integer(std::string_view bytes, unsigned exponent)
{
    std::size_t size = std::size_t(1) << exponent;
    if (size > 16 || size > bytes.size())
        return {};
    Object object;
    object.kind = Kind::integer;
    if (size == 16) {
        auto high = static_cast<std::int64_t>(number(bytes.data(), 8));
        auto low = number(bytes.data() + 8, 8);
        if (high != (static_cast<std::int64_t>(low) < 0 ? -1 : 0)) {
            object.kind = Kind::real;
            object.real = static_cast<double>(high) * 0x1p64 + static_cast<double>(low);
        }
        object.integer = static_cast<std::int64_t>(low);
    } else {
        object.integer = static_cast<std::int64_t>(number(bytes.data(), size));
    }
    return object;
}

Object real(Kind kind, std::string_view bytes, unsigned exponent)
{
    std::size_t size = std::size_t(1) << exponent;
    if ((size != 4 && size != 8) || size > bytes.size())
        return {};
    Object object;
    object.kind = kind;
    auto bits = number(bytes.data(), size);
    object.real = size == 8 ? bitCast<double>(bits)
                            : static_cast<double>(bitCast<float>(static_cast<std::uint32_t>(bits)));
    return object;
}

Object uid(std::string_view bytes, std::size_t size)
{
    if (size > 8 || size > bytes.size())
        return {};
    auto value = number(bytes.data(), size);
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return {};
    Object object;
    object.kind = Kind::uid;
    object.integer = static_cast<std::int64_t>(value);
    return object;
}

Object bytesOf(Object object, std::string_view rest, std::size_t unitSize)
{
    if (object.count > rest.size() / unitSize)
        return {};
    object.bytes = rest.substr(0, object.count * unitSize);
    return object;
}

// The count is in the marker itself, or is an integer behind it.
bool takeCount(std::string_view& rest, unsigned low, std::size_t& count)
{
    count = low;
    if (low != 0xF)
        return true;
    if (rest.empty())
        return false;
    auto marker = static_cast<unsigned char>(take(rest, 1)[0]);
    if (marker >> 4 != 1 || (marker & 0xF) > 3)
        return false;
    auto object = integer(rest, marker & 0xF);
    if (object.kind != Kind::integer || object.integer < 0)
        return false;
    rest.remove_prefix(std::size_t(1) << (marker & 0xF));
    count = static_cast<std::size_t>(object.integer);
    return true;
}

Object singleton(unsigned low)
{
    Object object;
    object.kind = low == 0 ? Kind::null : low == 8 || low == 9 ? Kind::boolean : Kind::invalid;
    object.boolean = low == 9;
    return object;
}

} // namespace

Result<BinaryPropertyListReader> BinaryPropertyListReader::open(std::string_view bytes)
{
    if (!bytes.starts_with(magic) || bytes.size() < magic.size() + trailerSize)
        return Error{"The data is not a binary property list"};
    auto trailer = bytes.substr(bytes.size() - trailerSize);
    auto offsetSize = number(trailer.data() + 6, 1);
    auto referenceSize = number(trailer.data() + 7, 1);
    auto count = number(trailer.data() + 8, 8);
    auto root = number(trailer.data() + 16, 8);
    auto tableOffset = number(trailer.data() + 24, 8);

    auto tableEnd = bytes.size() - trailerSize;
    bool sane = offsetSize >= 1 && offsetSize <= 8 && referenceSize >= 1 && referenceSize <= 8 && root < count
        && tableOffset > magic.size() && tableOffset <= tableEnd
        && count <= (tableEnd - tableOffset) / offsetSize;
    if (!sane)
        return Error{"The property list's table of objects is damaged"};

    BinaryPropertyListReader reader;
    reader.m_bytes = bytes;
    reader.m_objects = bytes.substr(0, tableOffset);
    reader.m_offsets = bytes.substr(tableOffset, count * offsetSize);
    reader.m_count = count;
    reader.m_root = root;
    reader.m_offsetSize = offsetSize;
    reader.m_referenceSize = referenceSize;
    return reader;
}

Object BinaryPropertyListReader::object(std::size_t reference) const
{
    if (reference >= m_count)
        return {};
    auto offset = number(m_offsets.data() + reference * m_offsetSize, m_offsetSize);
    if (offset < magic.size() || offset >= m_objects.size())
        return {};
    auto rest = m_objects.substr(offset);
    auto marker = static_cast<unsigned char>(take(rest, 1)[0]);
    unsigned low = marker & 0xF;
    switch (marker >> 4) {
    case 0x0:
        return singleton(low);
    case 0x1:
        return integer(rest, low);
    case 0x2:
        return real(Kind::real, rest, low);
    case 0x3:
        return real(Kind::date, rest, low);
    case 0x8:
        return uid(rest, low + 1);
    }

    Object object;
    if (!takeCount(rest, low, object.count))
        return {};
    switch (marker >> 4) {
    case 0x4:
        object.kind = Kind::data;
        return bytesOf(object, rest, 1);
    case 0x5:
        object.kind = Kind::string;
        return bytesOf(object, rest, 1);
    case 0x6:
        object.kind = Kind::string;
        object.isUTF16 = true;
        return bytesOf(object, rest, 2);
    case 0xA:
        object.kind = Kind::array;
        return bytesOf(object, rest, m_referenceSize);
    case 0xC:
        object.kind = Kind::set;
        return bytesOf(object, rest, m_referenceSize);
    case 0xD:
        object.kind = Kind::dictionary;
        return bytesOf(object, rest, 2 * m_referenceSize);
    }
    return {};
}

std::size_t BinaryPropertyListReader::reference(const Object& container, std::size_t index) const
{
    return number(container.bytes.data() + index * m_referenceSize, m_referenceSize);
}

Object BinaryPropertyListReader::value(const Object& dictionary, std::string_view asciiKey) const
{
    if (dictionary.kind != Kind::dictionary)
        return {};
    for (std::size_t index = 0; index < dictionary.count; ++index) {
        if (isString(object(reference(dictionary, index)), asciiKey))
            return object(reference(dictionary, dictionary.count + index));
    }
    return {};
}

std::string BinaryPropertyListReader::string(const Object& object)
{
    return object.isUTF16 ? utf8FromUTF16(object.bytes) : validUTF8(object.bytes);
}

bool BinaryPropertyListReader::isString(const Object& object, std::string_view ascii)
{
    if (object.kind != Kind::string || object.count != ascii.size())
        return false;
    return object.isUTF16 ? string(object) == ascii : object.bytes == ascii;
}

} // namespace velmorath
