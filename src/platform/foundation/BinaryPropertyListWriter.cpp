#include "BinaryPropertyListWriter.h"
#include "Unicode.h"
#include <limits>

namespace velmorath {
namespace {

// One size for all lists: the first object can be written before the last one is known.
constexpr std::size_t referenceSize = sizeof(BinaryPropertyListWriter::Reference);

constexpr std::size_t trailerSize = 32;

// The most significant byte first.
template <std::size_t size> char* put(char* bytes, std::uint64_t number)
{
    for (std::size_t index = 0; index < size; ++index)
        bytes[index] = static_cast<char>(number >> (8 * (size - 1 - index)));
    return bytes + size;
}

} // namespace

BinaryPropertyListWriter::BinaryPropertyListWriter()
    : m_bytes("bplist00")
{
}

void BinaryPropertyListWriter::reserve(std::size_t objects, std::size_t bytes)
{
    m_offsets.reserve(objects);
    m_bytes.reserve(bytes);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addString(std::string_view utf8)
{
    auto reference = beginObject();
    if (isASCII(utf8)) {
        appendMarker(0x5, utf8.size());
        m_bytes += utf8;
    } else {
        m_scratch.clear();
        appendUTF16(m_scratch, utf8);
        appendMarker(0x6, m_scratch.size() / 2);
        m_bytes += m_scratch;
    }
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addData(std::string_view data)
{
    auto reference = beginObject();
    appendMarker(0x4, data.size());
    m_bytes += data;
    return reference;
}

template <std::size_t size>
BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addNumber(char marker, std::uint64_t number)
{
    auto reference = beginObject();
    m_bytes += marker;
    put<size>(grow(size), number);
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addInteger(std::int64_t integer)
{
    return addNumber<8>('\x13', static_cast<std::uint64_t>(integer));
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addReal(double real)
{
    return addNumber<8>('\x23', __builtin_bit_cast(std::uint64_t, real));
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addUID(std::uint32_t uid)
{
    return addNumber<4>('\x83', uid);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addStored(std::string_view bytes)
{
    auto reference = beginObject();
    m_bytes += bytes;
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addArray(std::span<const Reference> elements)
{
    auto reference = beginObject();
    appendMarker(0xA, elements.size());
    appendReferences(elements);
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addDictionary(
    std::span<const Reference> keys, std::span<const Reference> values)
{
    auto reference = beginObject();
    appendMarker(0xD, keys.size());
    appendReferences(keys);
    appendReferences(values);
    return reference;
}

std::string BinaryPropertyListWriter::finish(Reference root)
{
    auto tableOffset = m_bytes.size();
    std::size_t offsetSize = tableOffset > std::numeric_limits<std::uint32_t>::max() ? 8 : 4;
    char* end = grow(m_offsets.size() * offsetSize + trailerSize);
    for (auto offset : m_offsets)
        end = offsetSize == 4 ? put<4>(end, offset) : put<8>(end, offset);

    end = put<6>(end, 0);
    end = put<1>(end, offsetSize);
    end = put<1>(end, referenceSize);
    end = put<8>(end, m_offsets.size());
    end = put<8>(end, root);
    put<8>(end, tableOffset);
    return std::move(m_bytes);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::beginObject()
{
    m_offsets.push_back(m_bytes.size());
    return static_cast<Reference>(m_offsets.size() - 1);
}

void BinaryPropertyListWriter::appendMarker(unsigned kind, std::size_t count)
{
    if (count < 0xF) {
        m_bytes += static_cast<char>(kind << 4 | count);
        return;
    }
    m_bytes += static_cast<char>(kind << 4 | 0xF);
    // An integer of one, four or eight bytes.
    if (count <= 0xFF) {
        m_bytes += '\x10';
        put<1>(grow(1), count);
    } else if (count <= 0xFFFFFFFF) {
        m_bytes += '\x12';
        put<4>(grow(4), count);
    } else {
        m_bytes += '\x13';
        put<8>(grow(8), count);
    }
}

void BinaryPropertyListWriter::appendReferences(std::span<const Reference> references)
{
    char* end = grow(references.size() * referenceSize);
    for (auto reference : references)
        end = put<referenceSize>(end, reference);
}

char* BinaryPropertyListWriter::grow(std::size_t count)
{
    auto size = m_bytes.size();
    m_bytes.resize(size + count);
    return m_bytes.data() + size;
}

} // namespace velmorath
