#pragma once

#include "Object.h"
#include <memory>
#include <variant>
#include <vector>

namespace velmorath {

/// What an archive held at one place. Copies are cheap: they share the arrays and the objects.
class ArchivedValue {
public:
    using Array = std::vector<ArchivedValue>;
    /// Something that can be decoded, but has no use here: a text, a number, a dictionary.
    struct Other { };

    /// Null.
    ArchivedValue() = default;
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

    /// Null when the value is of another kind.
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
    std::variant<std::monostate, std::shared_ptr<const Array>, std::shared_ptr<Object>, Other> m_value;
};

} // namespace velmorath
