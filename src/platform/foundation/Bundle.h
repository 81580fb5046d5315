#pragma once

#include "PropertyList.h"
#include <map>
#include <optional>
#include <vector>

namespace velmorath {

/// From the English texts to those of another language.
using StringsTable = std::map<std::string, std::string, std::less<>>;

/// Reads lines such as `"key" = "value";`, in which everything stands for itself. A line that looks otherwise
/// is left out.
StringsTable parseStringsTable(std::string_view utf8);

/// The program's own resources: sounds/, pictures/ and strings/ in the host's resource folder.
class Bundle {
public:
    static Bundle& main();

    /// What the program says about itself: "CFBundleName", "CFBundleDisplayName".
    const PropertyList::Dictionary& infoDictionary() const { return m_infoDictionary; }
    /// For the program's start.
    void setInfoDictionary(PropertyList::Dictionary dictionary) { m_infoDictionary = std::move(dictionary); }

    /// The file of a sound or a picture; nothing when there is none.
    std::optional<std::string> path(std::string_view forResource, std::string_view ofType) const;

    /// A text of the screen in the user's language: from the table strings/<language>.strings of the
    /// first preferred language that has one. The keys are the English texts; they stand for whatever has
    /// no translation. The table is read at the first use.
    std::string localizedString(std::string_view key);

    /// The same with these values in the places %1, %2 and so on.
    std::string localizedString(std::string_view key, const std::vector<std::string>& values);

    /// Forgets the language, and finds it again at the next use.
    void reset() { m_table.reset(); }

private:
    PropertyList::Dictionary m_infoDictionary;
    std::optional<StringsTable> m_table;
};

} // namespace velmorath
