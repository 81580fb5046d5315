#include "Bundle.h"
#include "Host.h"
#include "Unicode.h"
#include <algorithm>

namespace velmorath {
namespace {

// A tag becomes part of a file's name, and comes from outside.
bool isLanguageTag(std::string_view tag)
{
    return !tag.empty() && std::all_of(tag.begin(), tag.end(), [](char letter) {
        return isASCIILetter(letter) || isASCIIDigit(letter) || letter == '-';
    });
}

// "pt-BR" is content with "pt".
std::optional<StringsTable> tableForLanguage(std::string language)
{
    auto& files = Host::current().files();
    while (isLanguageTag(language)) {
        if (language == "en")
            return StringsTable();
        if (auto bytes = files.read(files.resourceDirectory() + "/strings/" + language + ".strings"))
            return parseStringsTable(*bytes);
        auto hyphen = language.rfind('-');
        language.resize(hyphen == std::string::npos ? 0 : hyphen);
    }
    return {};
}

StringsTable tableOfTheUser()
{
    for (auto& language : Host::current().locale().preferredLanguages()) {
        if (auto table = tableForLanguage(language))
            return std::move(*table);
    }
    return {};
}

} // namespace

StringsTable parseStringsTable(std::string_view utf8)
{
    constexpr std::string_view between = "\" = \"";
    constexpr std::string_view end = "\";";
    StringsTable table;
    while (!utf8.empty()) {
        const std::string_view line = utf8.substr(0, utf8.find('\n'));
        utf8.remove_prefix(std::min(line.size() + 1, utf8.size()));
        const std::size_t middle = line.find(between, 1);
        if (middle == std::string_view::npos || line.front() != '"')
            continue;
        const std::string_view value = line.substr(middle + between.size());
        if (value.ends_with(end))
            table.emplace(line.substr(1, middle - 1), value.substr(0, value.size() - end.size()));
    }
    return table;
}

Bundle& Bundle::main()
{
    static Bundle bundle;
    return bundle;
}

std::optional<std::string> Bundle::path(std::string_view forResource, std::string_view ofType) const
{
    auto& files = Host::current().files();
    for (auto folder : {"/sounds/", "/pictures/"}) {
        auto path = files.resourceDirectory() + folder + std::string(forResource) + "." + std::string(ofType);
        if (files.exists(path))
            return path;
    }
    return {};
}

std::string Bundle::localizedString(std::string_view key)
{
    if (!m_table)
        m_table = tableOfTheUser();
    auto place = m_table->find(key);
    return place == m_table->end() ? std::string(key) : place->second;
}

std::string Bundle::localizedString(std::string_view key, const std::vector<std::string>& values)
{
    std::string words = localizedString(key);
    std::string placeholder = "%1";
    for (const std::string& value : values) {
        if (const std::size_t place = words.find(placeholder); place != std::string::npos)
            words.replace(place, placeholder.size(), value);
        ++placeholder.back();
    }
    return words;
}

} // namespace velmorath
