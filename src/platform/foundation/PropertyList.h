#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
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

    PropertyList(std::string);
    PropertyList(const char*);
    PropertyList(std::int64_t);
    PropertyList(int);
    PropertyList(double);
    PropertyList(bool);
    PropertyList(Data);
    PropertyList(Stored);
    PropertyList(Array);
    PropertyList(Dictionary);
    PropertyList(const PropertyList&);
    PropertyList(PropertyList&&) noexcept;
    ~PropertyList();
    PropertyList& operator=(const PropertyList&);
    PropertyList& operator=(PropertyList&&) noexcept;

    /// Nothing when the value is of another kind.
    const std::string* string() const { return std::get_if<std::string>(&m_value); }
    std::optional<std::int64_t> integer() const { return get<std::int64_t>(); }
    std::optional<double> real() const { return get<double>(); }
    std::optional<bool> boolean() const { return get<bool>(); }
    const std::string* data() const;
    const std::string* stored() const;
    const Array* array() const { return std::get_if<Array>(&m_value); }
    const Dictionary* dictionary() const { return std::get_if<Dictionary>(&m_value); }
    Dictionary* dictionary() { return std::get_if<Dictionary>(&m_value); }

    bool operator==(const PropertyList&) const;

private:
    template <typename T> std::optional<T> get() const
    {
        auto* value = std::get_if<T>(&m_value);
        return value ? std::optional<T>(*value) : std::nullopt;
    }

    std::variant<std::string, std::int64_t, double, bool, Data, Stored, Array, Dictionary> m_value;
};

} // namespace velmorath
