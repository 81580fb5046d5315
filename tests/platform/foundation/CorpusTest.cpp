#include "CommittedTexts.h"
#include "FilesOnDisk.h"
#include "KeyedUnarchiver.h"
#include "Print.h"
#include "PropertyList.h"
#include "ToDoItem2.h"
#include <algorithm>
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
    if (const auto* array = value.as<PropertyList::Array>()) {
        if (array->size() > 9
            && std::count(array->begin(), array->end(), array->front()) == std::ssize(*array))
            return "[" + std::to_string(array->size()) + " times " + textOf(array->front()) + "]";
        for (const PropertyList& element : *array)
            text += (text.empty() ? "" : ", ") + textOf(element);
        return "[" + text + "]";
    }
    if (const auto* dictionary = value.dictionary()) {
        for (const auto& [key, element] : *dictionary)
            text += (text.empty() ? "" : ", ") + key + ": " + textOf(element);
        return "{" + text + "}";
    }
    if (const auto* data = value.as<PropertyList::Data>())
        return "data" + hex(data->bytes);
    if (const auto* stored = value.as<PropertyList::Stored>())
        return "kept" + hex(stored->bytes);
    if (const auto* integer = value.as<std::int64_t>())
        return std::to_string(*integer);
    if (const auto* real = value.as<double>())
        return description(*real);
    return value.string() ? inQuotes(*value.string()) : *value.as<bool>() ? "true" : "false";
}

using Array = KeyedUnarchiver::Array;

std::string textOf(const std::shared_ptr<Object>& value)
{
    if (const auto note = std::dynamic_pointer_cast<ToDoItem2>(value))
        return inQuotes(note->text) + " " + inQuotes(note->data) + (note->completed ? " completed" : "");
    const auto list = std::dynamic_pointer_cast<Array>(value);
    return list ? "a list of " + std::to_string(list->elements.size()) : "no note";
}

/// A note that stands there again is named by the place where it stood first.
std::string listOf(const std::vector<std::shared_ptr<Object>>& values)
{
    std::string text = "list";
    std::vector<std::shared_ptr<Object>> known;
    for (const auto& value : values) {
        const auto found = std::find(known.begin(), known.end(), value);
        const bool isAgain = std::dynamic_pointer_cast<ToDoItem2>(value) && found != known.end();
        text += " [" + (isAgain ? "as " + std::to_string(found - known.begin()) : textOf(value)) + "]";
        known.push_back(value);
    }
    return text;
}

std::string readArchive(std::string_view bytes)
{
    const auto root = KeyedUnarchiver::unarchiveTopLevelObject(bytes);
    if (!root)
        return root.error().description;
    const auto list = std::dynamic_pointer_cast<Array>(*root);
    return list ? listOf(list->elements) : textOf(*root);
}

std::string readPropertyList(std::string_view bytes)
{
    const auto value = PropertyList::parse(bytes);
    return value ? textOf(*value) : "refused";
}

TEST(CorpusTest, EveryFileIsReadAsItIsCommitted)
{
    ToDoItem2::enterInUnarchiver();
    CommittedTexts committed(VELMORATH_CORPUS "/read");
    using Reader = std::string (*)(std::string_view);
    for (const auto& [name, read] : {std::pair<std::string, Reader>{"fuzz-archive", readArchive},
             {"fuzz-property-list", readPropertyList}}) {
        std::set<std::string> lines;
        for (const auto& file : std::filesystem::directory_iterator(VELMORATH_CORPUS "/" + name))
            lines.insert(file.path().stem().string() + ": " + read(contents(file.path())));
        committed.compare(name, {lines.begin(), lines.end()});
    }
    committed.compareNames();
}

} // namespace
} // namespace velmorath
