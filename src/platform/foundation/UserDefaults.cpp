#include "UserDefaults.h"
#include "FileManager.h"
#include "Host.h"
#include "PropertyListSerialization.h"
#include <algorithm>

namespace velmorath {
namespace {

PropertyList::Dictionary load(const std::string& path)
{
    auto& fileManager = FileManager::standard();
    auto bytes = fileManager.read(path);
    if (!bytes)
        return {};
    auto values = parseBinaryPropertyList(*bytes);
    if (values && values->dictionary())
        return std::move(*values->dictionary());
    fileManager.markUnreadable(path);
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
    return place == m_values.end() ? nullptr : &place->second;
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
    return value->boolean().value_or(false) || value->integer().value_or(0) != 0
        || value->real().value_or(0) != 0;
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
    m_values.insert_or_assign(std::string(key), std::move(value));
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
    FileManager::standard().replace(
        *path, binaryPropertyList(values()), [this, changes = m_changes, completion](bool isWritten) {
            if (isWritten)
                m_writtenChanges = std::max(m_writtenChanges, changes);
            completion(isWritten);
        });
}

void UserDefaults::reset()
{
    m_values.clear();
    m_isLoaded = false;
    m_writtenChanges = m_changes;
}

PropertyList::Dictionary& UserDefaults::values()
{
    if (!m_isLoaded) {
        m_isLoaded = true;
        if (auto path = Host::current().files().defaultsFile())
            m_values = load(*path);
    }
    return m_values;
}

} // namespace velmorath
