#pragma once

#include "Object.h"
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace velmorath {

/// What an archive held at one place. Copies are cheap: they share the texts, the arrays and the objects.
class ArchivedValue {
public:
    using Array = std::vector<ArchivedValue>;
    /// Something that can be decoded, but has no use here: a dictionary, a date, bytes.
    struct Other { };

    /// Null.
    ArchivedValue() = default;
    ArchivedValue(bool boolean)
        : m_value(boolean)
    {
    }
    ArchivedValue(std::int64_t integer)
        : m_value(integer)
    {
    }
    ArchivedValue(double real)
        : m_value(real)
    {
    }
    ArchivedValue(std::string string)
        : m_value(std::make_shared<const std::string>(std::move(string)))
    {
    }
    ArchivedValue(Array array)
        : m_value(std::make_shared<const Array>(std::move(array)))
    {
    }
    ArchivedValue(std::shared_ptr<Object> object)
        : m_value(std::move(object))
    {
    }
    ArchivedValue(Other other)
        : m_value(other)
    {
    }

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }

    /// Null when the value is of another kind.
    const bool* boolean() const { return std::get_if<bool>(&m_value); }
    const std::int64_t* integer() const { return std::get_if<std::int64_t>(&m_value); }
    const double* real() const { return std::get_if<double>(&m_value); }
    const std::string* string() const
    {
        auto* string = std::get_if<std::shared_ptr<const std::string>>(&m_value);
        return string ? string->get() : nullptr;
    }
    const Array* array() const
    {
        auto* array = std::get_if<std::shared_ptr<const Array>>(&m_value);
        return array ? array->get() : nullptr;
    }
    std::shared_ptr<Object> object() const
    {
        auto* object = std::get_if<std::shared_ptr<Object>>(&m_value);
        return object ? *object : nullptr;
    }

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::shared_ptr<const std::string>,
        std::shared_ptr<const Array>, std::shared_ptr<Object>, Other>
        m_value;
};

} // namespace velmorath
