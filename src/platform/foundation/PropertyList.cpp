#include "PropertyList.h"

namespace velmorath {

PropertyList::PropertyList(std::string string)
    : m_value(std::move(string))
{
}

PropertyList::PropertyList(const char* string)
    : m_value(std::string(string))
{
}

PropertyList::PropertyList(std::int64_t integer)
    : m_value(integer)
{
}

PropertyList::PropertyList(int integer)
    : m_value(std::int64_t(integer))
{
}

PropertyList::PropertyList(double real)
    : m_value(real)
{
}

PropertyList::PropertyList(bool boolean)
    : m_value(boolean)
{
}

PropertyList::PropertyList(Data data)
    : m_value(std::move(data))
{
}

PropertyList::PropertyList(Stored stored)
    : m_value(std::move(stored))
{
}

PropertyList::PropertyList(Array array)
    : m_value(std::move(array))
{
}

PropertyList::PropertyList(Dictionary dictionary)
    : m_value(std::move(dictionary))
{
}

PropertyList::PropertyList(const PropertyList&) = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList::~PropertyList() = default;
PropertyList& PropertyList::operator=(const PropertyList&) = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;

const std::string* PropertyList::data() const
{
    auto* data = std::get_if<Data>(&m_value);
    return data ? &data->bytes : nullptr;
}

const std::string* PropertyList::stored() const
{
    auto* stored = std::get_if<Stored>(&m_value);
    return stored ? &stored->bytes : nullptr;
}

bool PropertyList::operator==(const PropertyList& other) const
{
    return m_value == other.m_value;
}

} // namespace velmorath
