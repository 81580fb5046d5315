#pragma once

#include "Result.h"
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmorath {

/// One value of the kinds that a settings file can hold: a string (UTF-8), a number, a boolean, bytes, a
/// date or whatever else has no use here, or an array or dictionary of such values.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Dictionary = std::map<std::string, PropertyList, std::less<>>;

    struct Data {
        std::string bytes;
        bool operator==(const Data&) const = default;
    };

    /// A value that is only kept: the bytes of its object in the file.
    struct Stored {
        std::string bytes;
        bool operator==(const Stored&) const = default;
    };

    /// From any of these kinds, and from what becomes one of them without loss.
    template <typename T>
    PropertyList(T value)
        : m_value(std::move(value))
    {
    }

    /// Takes the bytes of a file, whatever they are. An error when they are damaged, nested too deep, refer
    /// to themselves, or would become much larger in memory than they are.
    static Result<PropertyList> parse(std::string_view bytes);

    /// The bytes of a file that holds this.
    std::string binary() const;

    /// Null when the value is of another kind.
    template <typename T> const T* as() const { return std::get_if<T>(&m_value); }
    const std::string* string() const { return as<std::string>(); }
    const Dictionary* dictionary() const { return as<Dictionary>(); }

    bool operator==(const PropertyList&) const = default;

private:
    std::variant<std::string, std::int64_t, double, bool, Data, Stored, Array, Dictionary> m_value;
};

} // namespace velmorath
