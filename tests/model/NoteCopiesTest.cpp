#include "NoteCopies.h"
#include "KeyedArchiver.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

std::shared_ptr<ToDoItem2> note(
    const std::string& text, bool completed = false, std::optional<std::string> date = {})
{
    auto made = std::make_shared<ToDoItem2>();
    made->text = text;
    made->completed = completed;
    made->data = std::move(date);
    return made;
}

/// What a copy with these bytes holds, as text; its error otherwise.
std::string read(std::string_view bytes)
{
    const Result<Notes> notes = notesOfCopy(bytes);
    return notes ? textOfNotes(*notes) : "error: " + notes.error().description;
}

TEST(NoteCopiesTest, AListIsTheSameAfterItWasWrittenAndRead)
{
    const Notes list{note("Milk"), note("Two\nlines\n\nand more", true), note("- [x] looks done"),
        note("  early"), note("שלום 👵🏽")};
    const std::string text = textOfNotes(list);
    EXPECT_TRUE(text.starts_with("- [ ] Milk\n- [x] Two\n  lines\n  \n  and more\n- [ ] - [x] looks done\n"));
    EXPECT_EQ(read(text), text);

    ToDoItem2::enterInUnarchiver();
    const Notes dated{note("Milk", true, "Nov 1, 2026"), note("")};
    const Result<Notes> archived = notesOfCopy(KeyedArchiver::archivedData(dated));
    ASSERT_TRUE(archived);
    ASSERT_EQ(archived->size(), 1u) << "not the empty one";
    EXPECT_EQ(archived->front()->data, "Nov 1, 2026");
    EXPECT_TRUE(archived->front()->completed);
}

TEST(NoteCopiesTest, TextsOfOtherProgramsAreRead)
{
    EXPECT_EQ(read("\xEF\xBB\xBF* one\r\n+ [X] two\r\n\r\n\ttab\r\nthree\n   \n- \nfour"),
        "- [ ] one\n- [x] two\n- [ ] \ttab\n- [ ] three\n- [ ] four\n");
    EXPECT_EQ(read(""), "");
    for (const std::string_view broken : {std::string_view("bplist00 and nothing"),
             std::string_view("nothing\0inside", 14), std::string_view("\xFF\xFE")})
        EXPECT_TRUE(read(broken).starts_with("error: ")) << broken;
    EXPECT_EQ(read(KeyedArchiver::archivedData(Notes{})), "");
}

TEST(NoteCopiesTest, WhatTheListHasIsNotMissing)
{
    const Notes list{note("a", false, "Nov 1"), note("b", true), note("c"), note("c")};
    const auto missing = [&](const Notes& copy) { return textOfNotes(notesMissing(list, copy)); };
    EXPECT_EQ(missing(list), "");
    EXPECT_EQ(
        missing({note("b"), note("c"), note("c"), note("c"), note("d")}), "- [ ] b\n- [ ] c\n- [ ] d\n");
    EXPECT_EQ(missing({note("a")}), "") << "whatever its date";
    EXPECT_EQ(missing({note("a", false, "Nov 2")}), "- [ ] a\n");
}

} // namespace
} // namespace velmorath
