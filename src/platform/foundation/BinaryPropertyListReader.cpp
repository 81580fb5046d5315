#include "BinaryPropertyListReader.h"
#include "Unicode.h"
#include <optional>

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

// A number or something else without a count. Its size is in the marker.
Object scalar(std::string_view bytes)
{
    auto marker = static_cast<unsigned char>(bytes[0]);
    unsigned low = marker & 0xF;
    std::size_t size = marker >> 4 == 0 ? 0 : marker >> 4 == 8 ? low + 1 : std::size_t(1) << low;
    // Returned in all cases, so that it is made where it goes: a list of notes is read by half a million of
    // these.
    Object object;
    if (size >= bytes.size())
        return object;
    const char* payload = bytes.data() + 1;
    // Of what is wider, the part that counts.
    auto value = size > 8 ? number(payload + size - 8, 8) : number(payload, size);
    object.bytes = bytes.substr(0, 1 + size);
    object.integer = static_cast<std::int64_t>(value);
    switch (marker >> 4) {
    case 0x0:
        object.kind = low == 0 ? Kind::null : low == 8 || low == 9 ? Kind::boolean : Kind::invalid;
        object.boolean = low == 9;
        break;
    case 0x1: {
        bool isWide = size == 16 && number(payload, 8) != (object.integer < 0 ? ~std::uint64_t{0} : 0);
        object.kind = size > 16 ? Kind::invalid : isWide ? Kind::wideInteger : Kind::integer;
        break;
    }
    case 0x2:
        object.kind = size == 4 || size == 8 ? Kind::real : Kind::invalid;
        object.real = size == 8
            ? __builtin_bit_cast(double, value)
            : static_cast<double>(__builtin_bit_cast(float, static_cast<std::uint32_t>(value)));
        break;
    case 0x3:
        object.kind = size == 8 ? Kind::date : Kind::invalid;
        break;
    case 0x8:
        object.kind = Kind::uid;
        object.integer = size > 8 ? -1 : object.integer;
        break;
    }
    return object;
}

// Takes off the front how many bytes, units, elements or pairs follow: in the marker itself, or as an integer
// behind it.
std::optional<std::uint64_t> takeCount(std::string_view& rest)
{
    std::uint64_t count = take(rest, 1)[0] & 0xF;
    if (count != 0xF)
        return count;
    auto object = rest.empty() ? Object() : scalar(rest);
    if (object.kind != Kind::integer || object.integer < 0)
        return {};
    rest.remove_prefix(object.bytes.size());
    return static_cast<std::uint64_t>(object.integer);
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

Object BinaryPropertyListReader::object(std::uint64_t reference) const
{
    if (reference >= m_count)
        return {};
    auto offset = number(m_offsets.data() + reference * m_offsetSize, m_offsetSize);
    if (offset < magic.size() || offset >= m_objects.size())
        return {};
    auto rest = m_objects.substr(static_cast<std::size_t>(offset));
    Object object;
    std::size_t unitSize = 1;
    switch (static_cast<unsigned char>(rest[0]) >> 4) {
    case 0x4:
        object.kind = Kind::data;
        break;
    case 0x5:
        object.kind = Kind::string;
        break;
    case 0x6:
        object.kind = Kind::string;
        object.isUTF16 = true;
        unitSize = 2;
        break;
    case 0xA:
        object.kind = Kind::array;
        unitSize = m_referenceSize;
        break;
    case 0xD:
        object.kind = Kind::dictionary;
        unitSize = 2 * m_referenceSize;
        break;
    default:
        return scalar(rest);
    }
    auto count = takeCount(rest);
    // A file whose references have no size was refused at once.
    // NOLINTNEXTLINE(clang-analyzer-core.DivideZero)
    if (!count || *count > rest.size() / unitSize)
        return {};
    object.count = static_cast<std::size_t>(*count);
    object.bytes = rest.substr(0, object.count * unitSize);
    return object;
}

std::uint64_t BinaryPropertyListReader::reference(const Object& container, std::size_t index) const
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
    if (!object.isUTF16)
        return object.bytes == ascii;
    for (std::size_t index = 0; index < ascii.size(); ++index) {
        if (object.bytes[2 * index] != 0 || object.bytes[2 * index + 1] != ascii[index])
            return false;
    }
    return true;
}

} // namespace velmorath
