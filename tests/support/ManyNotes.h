#pragma once

#include "NoteCopies.h"

namespace velmorath {

inline std::shared_ptr<ToDoItem2> makeNote(
    std::optional<std::string> text, std::optional<std::string> date, bool completed)
{
    auto note = std::make_shared<ToDoItem2>();
    note->text = std::move(text);
    note->data = std::move(date);
    note->completed = completed;
    return note;
}

inline bool operator==(const ToDoItem2& one, const ToDoItem2& other)
{
    return one.text == other.text && one.data == other.data && one.completed == other.completed;
}

/// A list as people have it, of any length: two lines' worth of words, a few languages, some dates.
inline Notes manyNotes(int count)
{
    constexpr const char* words[] = {"Buy bread and milk", "Perché no? È già così", "买牛奶和面包",
        "اشتر الخبز", "Call grandma 👵🏽 about Sunday"};
    Notes notes;
    for (int i = 0; i < count; ++i) {
        auto number = std::to_string(i);
        auto date =
            i % 7 == 0 ? std::nullopt : std::optional("Nov " + std::to_string(i / 50 % 28 + 1) + ", 2026");
        notes.push_back(makeNote(words[i % 5] + (" " + number), date, i % 3 == 0));
    }
    return notes;
}

} // namespace velmorath
