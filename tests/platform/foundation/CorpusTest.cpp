#include "CommittedTexts.h"
#include "FilesOnDisk.h"
#include "KeyedUnarchiver.h"
#include "Print.h"
#include "PropertyListSerialization.h"
#include "StringsTable.h"
#include "ToDoItem2.h"
#include <filesystem>
#include <gtest/gtest.h>

namespace velmorath {
namespace {

std::string inQuotes(const std::optional<std::string>& text)
{
    return text ? "\"" + *text + "\"" : "none";
}

std::string hex(std::string_view bytes)
{
    std::string text;
    for (const unsigned char byte : bytes)
        text.append({' ', "0123456789ABCDEF"[byte / 16], "0123456789ABCDEF"[byte % 16]});
    return text;
}

std::string textOf(const PropertyList& value)
{
    std::string text;
    if (const auto* array = value.array()) {
        for (const PropertyList& element : *array)
            text += (text.empty() ? "" : ", ") + textOf(element);
        return "[" + text + "]";
    }
    if (const auto* dictionary = value.dictionary()) {
        for (const auto& [key, element] : *dictionary)
            text += (text.empty() ? "" : ", ") + key + ": " + textOf(element);
        return "{" + text + "}";
    }
    if (value.data() || value.stored())
        return value.data() ? "data" + hex(*value.data()) : "kept" + hex(*value.stored());
    if (value.integer())
        return std::to_string(*value.integer());
    if (value.real())
        return description(*value.real());
    return value.string() ? inQuotes(*value.string()) : *value.boolean() ? "true" : "false";
}

std::string textOf(const ArchivedValue& value)
{
    if (const auto note = std::dynamic_pointer_cast<ToDoItem2>(value.object()))
        return inQuotes(note->text) + " " + inQuotes(note->data) + (note->completed ? " completed" : "");
    return value.array() ? "a list of " + std::to_string(value.array()->size()) : "no note";
}

/// A note that stands there again is named by the place where it stood first.
std::string listOf(const ArchivedValue::Array& values)
{
    std::string text = "list";
    std::vector<std::shared_ptr<Object>> known;
    for (const ArchivedValue& value : values) {
        const auto found = std::find(known.begin(), known.end(), value.object());
        const bool isAgain = value.object() && found != known.end();
        text += " [" + (isAgain ? "as " + std::to_string(found - known.begin()) : textOf(value)) + "]";
        known.push_back(value.object());
    }
    return text;
}

std::string readArchive(std::string_view bytes)
{
    const auto root = KeyedUnarchiver::unarchiveTopLevelObject(bytes);
    if (!root)
        return root.error().description;
    return root->array() ? listOf(*root->array()) : textOf(*root);
}

std::string readPropertyList(std::string_view bytes)
{
    const auto value = parseBinaryPropertyList(bytes);
    return value ? textOf(*value) : "refused";
}

std::string readStrings(std::string_view bytes)
{
    std::string text;
    for (const auto& [key, value] : parseStringsTable(bytes))
        text += inQuotes(key) + " = " + inQuotes(value) + "; ";
    return text;
}

TEST(CorpusTest, EveryFileIsReadAsItIsCommitted)
{
    ToDoItem2::enterInUnarchiver();
    CommittedTexts committed(VELMORATH_CORPUS "/read");
    using Reader = std::string (*)(std::string_view);
    for (const auto& [name, read] : {std::pair<std::string, Reader>{"fuzz-archive", readArchive},
             {"fuzz-property-list", readPropertyList}, {"fuzz-strings", readStrings}}) {
        std::set<std::string> lines;
        for (const auto& file : std::filesystem::directory_iterator(VELMORATH_CORPUS "/" + name))
            lines.insert(file.path().stem().string() + ": " + read(contents(file.path())));
        committed.compare(name, {lines.begin(), lines.end()});
    }
    committed.compareNames();
}

} // namespace
} // namespace velmorath
