#pragma once

#include "Result.h"
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmorath {

/// Looks into the bytes of a binary property list without building anything from them. The bytes stay
/// the caller's and must outlive the reader. They may be hostile: whatever they say, nothing outside of
/// them is read, and an object that is not whole is of the kind `invalid`. What the reader does not
/// know is how often its user follows the same reference, or a circle of them: that is the user's care.
class BinaryPropertyListReader {
public:
    enum class Kind {
        invalid,
        null,
        boolean,
        integer,
        wideInteger,
        real,
        date,
        data,
        string,
        uid,
        array,
        dictionary
    };

    /// Cheap to copy. Of its values, the one that belongs to the kind counts.
    struct Object {
        Kind kind = Kind::invalid;
        /// How a string is stored; ASCII otherwise.
        bool isUTF16 = false;
        bool boolean = false;
        /// Also what a uid refers to, negative when that is nowhere.
        std::int64_t integer = 0;
        double real = 0;
        /// Elements of an array, pairs of a dictionary.
        std::size_t count = 0;
        /// The stored bytes of data, a string, or a container's references; of anything else, the whole
        /// object as it is stored.
        std::string_view bytes;
    };

    static Result<BinaryPropertyListReader> open(std::string_view bytes);

    std::size_t size() const { return m_bytes.size(); }
    Object root() const { return object(m_root); }

    /// Invalid also for a reference that leads nowhere.
    Object object(std::uint64_t reference) const;

    /// The reference to a container's element. A dictionary has the keys first, `count` of them, then as
    /// many values.
    std::uint64_t reference(const Object& container, std::size_t index) const;

    /// The value under a key, invalid when there is none. Looks at each key in turn.
    Object value(const Object& dictionary, std::string_view asciiKey) const;

    /// The text as UTF-8, always valid: what cannot be read becomes the replacement character.
    static std::string string(const Object&);
    static bool isString(const Object&, std::string_view ascii);

private:
    BinaryPropertyListReader() = default;

    std::string_view m_bytes;
    std::string_view m_objects;
    std::string_view m_offsets;
    std::uint64_t m_count = 0;
    std::uint64_t m_root = 0;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
};

} // namespace velmorath
