#include "UserDefaults.h"
#include "Host.h"
#include <algorithm>

namespace velmorath {
namespace {

PropertyList::Dictionary load(const std::string& path)
{
    auto& files = Host::current().files();
    auto bytes = files.read(path);
    auto values = bytes ? PropertyList::parse(*bytes) : bytes.error();
    if (values && values->dictionary())
        return *values->dictionary();
    files.markUnreadable(path);
    return {};
}

} // namespace

UserDefaults& UserDefaults::standard()
{
    static UserDefaults defaults;
    return defaults;
}

const PropertyList* UserDefaults::object(std::string_view key)
{
    auto place = values().find(key);
    return place == m_values->end() ? nullptr : &place->second;
}

bool UserDefaults::boolForKey(std::string_view key)
{
    auto* value = object(key);
    if (!value)
        return false;
    if (auto* text = value->string()) {
        auto start = text->find_first_not_of(" +-0");
        return text->find_first_of("YyTt123456789", start) == start && start != std::string::npos;
    }
    const auto isYes = [value](auto no) {
        const auto* known = value->as<decltype(no)>();
        return known && *known != no;
    };
    return isYes(false) || isYes(std::int64_t{0}) || isYes(0.0);
}

const PropertyList::Dictionary* UserDefaults::dictionary(std::string_view key)
{
    auto* value = object(key);
    return value ? value->dictionary() : nullptr;
}

void UserDefaults::setObject(std::string_view key, PropertyList value)
{
    auto* old = object(key);
    if (old && *old == value)
        return;
    m_values->insert_or_assign(std::string(key), std::move(value));
    ++m_changes;
}

void UserDefaults::removeObject(std::string_view key)
{
    if (values().erase(std::string(key)) > 0)
        ++m_changes;
}

void UserDefaults::synchronize(const std::function<void(bool)>& completion)
{
    auto path = Host::current().files().defaultsFile();
    if (m_changes == m_writtenChanges || !path) {
        completion(m_changes == m_writtenChanges);
        return;
    }
    Host::current().files().replace(*path, PropertyList(values()).binary(),
        [this, changes = m_changes, completion](const std::optional<Error>& error) {
            if (!error)
                m_writtenChanges = std::max(m_writtenChanges, changes);
            completion(!error);
        });
}

void UserDefaults::reset()
{
    m_values.reset();
    m_writtenChanges = m_changes;
}

PropertyList::Dictionary& UserDefaults::values()
{
    if (!m_values) {
        auto path = Host::current().files().defaultsFile();
        m_values = path ? load(*path) : PropertyList::Dictionary();
    }
    return *m_values;
}

} // namespace velmorath
