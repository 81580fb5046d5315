#pragma once

#include "KeyedArchiver.h"
#include "KeyedUnarchiver.h"
#include "Object.h"

namespace velmorath {

/// A record as the archive holds them, for tests and measurements of the archive alone.
struct ArchivedNote : Object, Coding {
    static constexpr std::string_view className = "_TtC9Velmorath9ToDoItem2";

    std::optional<std::string> text;
    std::optional<std::string> date;
    bool completed = false;

    std::string_view archivedClassName() const override { return className; }
    void encode(KeyedArchiver& archiver) const override
    {
        archiver.encodeString(text, "text");
        archiver.encodeString(date, "data");
        archiver.encodeBool(completed, "completed");
    }
    bool operator==(const ArchivedNote& other) const
    {
        return text == other.text && date == other.date && completed == other.completed;
    }

    static void registerClass()
    {
        KeyedUnarchiver::setClass(std::string(className), [](KeyedUnarchiver& unarchiver) {
            auto note = std::make_shared<ArchivedNote>();
            note->text = unarchiver.decodeString("text");
            note->date = unarchiver.decodeString("data");
            note->completed = unarchiver.decodeBool("completed");
            return note;
        });
    }

    static std::shared_ptr<ArchivedNote> make(
        std::optional<std::string> text, std::optional<std::string> date, bool completed)
    {
        auto note = std::make_shared<ArchivedNote>();
        note->text = std::move(text);
        note->date = std::move(date);
        note->completed = completed;
        return note;
    }
};

using ArchivedNotes = std::vector<std::shared_ptr<ArchivedNote>>;

/// A list as people have it, of any length: two lines' worth of words, a few languages, some dates.
inline ArchivedNotes manyNotes(int count)
{
    constexpr const char* words[] = {"Buy bread and milk", "Perché no? È già così", "买牛奶和面包",
        "اشتر الخبز", "Call grandma 👵🏽 about Sunday"};
    ArchivedNotes notes;
    for (int i = 0; i < count; ++i) {
        auto number = std::to_string(i);
        auto date =
            i % 7 == 0 ? std::nullopt : std::optional("Nov " + std::to_string(i / 50 % 28 + 1) + ", 2026");
        notes.push_back(ArchivedNote::make(words[i % 5] + (" " + number), date, i % 3 == 0));
    }
    return notes;
}

} // namespace velmorath
