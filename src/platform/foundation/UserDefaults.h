#pragma once

#include "PropertyList.h"
#include <functional>
#include <optional>
#include <string_view>

namespace velmorath {

/// The user's settings: values under keys, in one file. Read at the first use; a file that cannot be
/// read counts as empty and is kept aside. Without a file to write to, the values live as long as the
/// program.
class UserDefaults {
public:
    static UserDefaults& standard();

    /// Null when there is none. Valid until the next change.
    const PropertyList* object(std::string_view key);
    /// A boolean, a number, or a text such as "YES" or "1". False when there is none, or something else.
    bool boolForKey(std::string_view key);
    /// Null when there is none, or something that is not a dictionary.
    const PropertyList::Dictionary* dictionary(std::string_view key);

    void setObject(std::string_view key, PropertyList);
    void setBool(std::string_view key, bool value) { setObject(key, value); }
    void removeObject(std::string_view key);

    /// Writes all values to the file if any has changed since it was last written. The completion, called
    /// once, now or before the next frame, gets false when they could not be written; the next call tries
    /// again.
    void synchronize(const std::function<void(bool)>& completion = [](bool) {});

    /// Forgets everything, changes that were not written too, and reads the file again at the next use.
    void reset();

private:
    UserDefaults() = default;

    PropertyList::Dictionary& values();

    /// Nothing until they are read.
    std::optional<PropertyList::Dictionary> m_values;
    /// How many changes there were, and how many of them are known to be in the file.
    std::uint64_t m_changes = 0;
    std::uint64_t m_writtenChanges = 0;
};

} // namespace velmorath
