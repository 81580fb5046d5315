#include "NoteCopies.h"
#include "KeyedUnarchiver.h"
#include "Unicode.h"
#include <map>
#include <tuple>

namespace velmorath {

namespace {

constexpr std::string_view archiveMark = "bplist";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view openMark = "- [ ] ";
constexpr std::string_view completedMark = "- [x] ";
constexpr std::string_view indentation = "  ";

/// Takes one line off the front, without its end.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

bool take(std::string_view& text, std::string_view prefix)
{
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

struct Item {
    std::string_view text;
    bool completed = false;
};

/// What a line of a Markdown list holds; nothing when it is none.
std::optional<Item> itemOf(std::string_view line)
{
    if (!take(line, "- ") && !take(line, "* ") && !take(line, "+ "))
        return {};
    if (take(line, "[ ] "))
        return Item{line, false};
    const bool completed = take(line, "[x] ") || take(line, "[X] ");
    return Item{line, completed};
}

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

Notes notesOfText(std::string_view text)
{
    Notes notes;
    bool isInItem = false;
    while (!text.empty()) {
        std::string_view line = takeLine(text);
        const std::optional<Item> item = itemOf(line);
        const bool isIndented = line.starts_with(indentation) || line.starts_with('\t');
        if (!item && isInItem && isIndented) {
            line.remove_prefix(line.starts_with('\t') ? 1 : indentation.size());
            notes.back()->text->append("\n").append(line);
            continue;
        }
        isInItem = item.has_value();
        if (isBlank(item ? item->text : line))
            continue;
        notes.push_back(std::make_shared<ToDoItem2>());
        notes.back()->text = item ? item->text : line;
        notes.back()->completed = item && item->completed;
    }
    return notes;
}

} // namespace

Result<Notes> notesIn(const std::shared_ptr<Object>& root)
{
    const auto* const array = dynamic_cast<const KeyedUnarchiver::Array*>(root.get());
    if (!array)
        return Error{"The archive's root is not a list of notes"};
    Notes notes;
    notes.reserve(array->elements.size());
    for (const auto& element : array->elements) {
        auto note = std::dynamic_pointer_cast<ToDoItem2>(element);
        if (!note)
            return Error{"The archive's list holds something that is not a note"};
        notes.push_back(std::move(note));
    }
    return notes;
}

std::string textOfNotes(const Notes& notes)
{
    std::string all;
    for (const auto& note : notes) {
        all += note->completed ? completedMark : openMark;
        for (const char c : note->text.value_or("")) {
            all += c;
            if (c == '\n')
                all += indentation;
        }
        all += '\n';
    }
    return all;
}

Result<Notes> archivedNotes(std::string_view bytes)
{
    const auto root = KeyedUnarchiver::unarchiveTopLevelObject(bytes);
    return root ? notesIn(*root) : Result<Notes>(root.error());
}

Result<Notes> notesOfArchive(std::string_view bytes)
{
    const Result<Notes> archived = archivedNotes(bytes);
    if (!archived)
        return archived.error();
    Notes notes;
    for (const auto& note : *archived) {
        // One that stands there twice is two notes here.
        if (note->text && !note->text->empty())
            notes.push_back(std::make_shared<ToDoItem2>(*note));
    }
    return notes;
}

Result<Notes> notesOfCopy(std::string_view bytes)
{
    if (bytes.starts_with(archiveMark))
        return notesOfArchive(bytes);
    take(bytes, byteOrderMark);
    if (bytes.find('\0') != std::string_view::npos || validUTF8(bytes) != bytes)
        return Error{"it is neither an archive nor a text"};
    return notesOfText(bytes);
}

Notes notesMissing(const Notes& list, const Notes& copy)
{
    using Key = std::tuple<std::string, std::optional<std::string>, bool>;
    std::map<Key, std::size_t> withDate;
    std::map<Key, std::size_t> withAnyDate;
    for (const auto& note : list) {
        ++withDate[{note->text.value_or(""), note->data, note->completed}];
        ++withAnyDate[{note->text.value_or(""), {}, note->completed}];
    }
    Notes missing;
    for (const auto& note : copy) {
        auto& known = note->data ? withDate : withAnyDate;
        std::size_t& count = known[{note->text.value_or(""), note->data, note->completed}];
        if (count > 0)
            --count;
        else
            missing.push_back(note);
    }
    return missing;
}

} // namespace velmorath
