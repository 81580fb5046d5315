#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

/// Puts a binary property list together, from the leaves up: each call appends one object and returns
/// the reference by which a container names it. Nothing is shared but what the caller shares.
class BinaryPropertyListWriter {
public:
    using Reference = std::uint32_t;

    BinaryPropertyListWriter();

    /// Makes room for this many objects and bytes, to save time.
    void reserve(std::size_t objects, std::size_t bytes);

    /// What is not UTF-8 becomes the replacement character.
    Reference addString(std::string_view utf8);
    Reference addInteger(std::int64_t);
    Reference addReal(double);
    Reference addBoolean(bool boolean) { return addStored(boolean ? "\x09" : "\x08"); }
    Reference addData(std::string_view);
    Reference addUID(std::uint32_t);
    /// An object as it is stored: the `bytes` of one that the reader met.
    Reference addStored(std::string_view bytes);
    Reference addArray(std::span<const Reference> elements);
    /// As many keys as values.
    Reference addDictionary(std::span<const Reference> keys, std::span<const Reference> values);

    /// The finished bytes. The writer is of no use afterwards.
    std::string finish(Reference root);

private:
    template <std::size_t size> Reference addNumber(char marker, std::uint64_t number);
    Reference beginObject();
    void appendMarker(unsigned kind, std::size_t count);
    void appendReferences(std::span<const Reference>);
    char* grow(std::size_t count);

    std::string m_bytes;
    std::vector<std::uint64_t> m_offsets;
    std::string m_scratch;
};

} // namespace velmorath
