#include "NoteCopies.h"
#include "KeyedArchiver.h"
#include "ListTest.h"
#include "ManyNotes.h"

namespace velmorath {
namespace {

/// What a copy with these bytes holds, as text; its error otherwise.
std::string read(std::string_view bytes)
{
    const Result<Notes> notes = notesOfCopy(bytes);
    return notes ? textOfNotes(*notes) : "error: " + notes.error().description;
}

TEST(NoteCopiesTest, AListIsTheSameAfterItWasWrittenAndRead)
{
    const std::string text = textOfNotes(DrivenProgram::notesFrom(
        {"Milk", "x Two\nlines\n\nand more", "- [x] looks done", "  early", "שלום 👵🏽"}));
    EXPECT_TRUE(text.starts_with("- [ ] Milk\n- [x] Two\n  lines\n  \n  and more\n- [ ] - [x] looks done\n"));
    EXPECT_EQ(read(text), text);

    ToDoItem2::enterInUnarchiver();
    const Notes dated{makeNote("Milk", "Nov 1, 2026", true), makeNote("", {}, false)};
    const Result<Notes> archived = notesOfCopy(KeyedArchiver::archivedData(dated));
    ASSERT_TRUE(archived);
    ASSERT_EQ(archived->size(), 1u) << "not the empty one";
    EXPECT_EQ(*archived->front(), *dated.front());
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
    Notes list = DrivenProgram::notesFrom({"a", "x b", "c", "c"});
    list.front()->data = "Nov 1";
    const auto missing = [&](const Notes& copy) { return textOfNotes(notesMissing(list, copy)); };
    EXPECT_EQ(missing(list), "");
    EXPECT_EQ(missing(DrivenProgram::notesFrom({"b", "c", "c", "c", "d"})), "- [ ] b\n- [ ] c\n- [ ] d\n");
    EXPECT_EQ(missing({makeNote("a", {}, false)}), "") << "whatever its date";
    EXPECT_EQ(missing({makeNote("a", "Nov 2", false)}), "- [ ] a\n");
}

} // namespace
} // namespace velmorath
