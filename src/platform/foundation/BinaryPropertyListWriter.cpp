#include "BinaryPropertyListWriter.h"
#include "Unicode.h"
#include <bit>
#include <limits>

namespace velmorath {
namespace {

// One size for all lists: the first object can be written before the last one is known.
constexpr std::size_t referenceSize = sizeof(BinaryPropertyListWriter::Reference);

} // namespace

BinaryPropertyListWriter::BinaryPropertyListWriter()
    : m_bytes("bplist00")
{
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addString(std::string_view utf8)
{
    auto reference = beginObject();
    if (isASCII(utf8)) {
        appendMarker(0x5, utf8.size());
        m_bytes += utf8;
    } else {
        auto utf16 = utf16FromUTF8(utf8);
        appendMarker(0x6, utf16.size() / 2);
        m_bytes += utf16;
    }
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addInteger(std::int64_t integer)
{
    auto reference = beginObject();
    m_bytes += '\x13';
    appendNumber(static_cast<std::uint64_t>(integer), 8);
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addReal(double real)
{
    auto reference = beginObject();
    m_bytes += '\x23';
    appendNumber(std::bit_cast<std::uint64_t>(real), 8);
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addBoolean(bool boolean)
{
    auto reference = beginObject();
    m_bytes += boolean ? '\x09' : '\x08';
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addData(std::string_view data)
{
    auto reference = beginObject();
    appendMarker(0x4, data.size());
    m_bytes += data;
    return reference;
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::addUID(std::uint32_t uid)
{
    auto reference = beginObject();
    m_bytes += '\x83';
    appendNumber(uid, 4);
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
    m_bytes.reserve(tableOffset + m_offsets.size() * offsetSize + 32);
    for (auto offset : m_offsets)
        appendNumber(offset, offsetSize);

    m_bytes.append(6, '\0');
    appendNumber(offsetSize, 1);
    appendNumber(referenceSize, 1);
    appendNumber(m_offsets.size(), 8);
    appendNumber(root, 8);
    appendNumber(tableOffset, 8);
    return std::move(m_bytes);
}

BinaryPropertyListWriter::Reference BinaryPropertyListWriter::beginObject()
{
    m_offsets.push_back(m_bytes.size());
    return static_cast<Reference>(m_offsets.size() - 1);
}

void BinaryPropertyListWriter::appendNumber(std::uint64_t number, std::size_t size)
{
    char bytes[8];
    for (std::size_t index = 0; index < size; ++index)
        bytes[size - 1 - index] = static_cast<char>(number >> (8 * index));
    m_bytes.append(bytes, size);
}

void BinaryPropertyListWriter::appendMarker(unsigned kind, std::size_t count)
{
    if (count < 0xF) {
        m_bytes += static_cast<char>(kind << 4 | count);
        return;
    }
    m_bytes += static_cast<char>(kind << 4 | 0xF);
    // The smallest size that holds the count: two to the power of the exponent, in bytes.
    unsigned exponent = count <= 0xFF ? 0 : count <= 0xFFFF ? 1 : count <= 0xFFFFFFFF ? 2 : 3;
    m_bytes += static_cast<char>(0x10 | exponent);
    appendNumber(count, std::size_t(1) << exponent);
}

void BinaryPropertyListWriter::appendReferences(std::span<const Reference> references)
{
    for (auto reference : references)
        appendNumber(reference, referenceSize);
}

} // namespace velmorath
