#include "Story.h"

namespace velmorath {
namespace {

using DeleteTest = Story;

TEST_F(DeleteTest, TheRowsBelowCloseTheGapOneAfterAnother)
{
    start({"1", "2", "3", "4", "5"});
    swipe(1, -200);
    for (const double seconds : {0.02, 0.03, 0.30})
        then("later", seconds);
    // The last one starts after 0.06 s and takes 0.3 s; the table reloads when it is there.
    EXPECT_EQ(takeLines("tableView(tableView:"), Lines());
    then("there", 0.05);
    EXPECT_EQ(takeLines("tableView(tableView:").size(), 4u);
}

TEST_F(DeleteTest, AtTheEndOfALongListNothingStaysEmptyBelow)
{
    start(numbers(12));
    then("scrolled", [&] { scroll(-240); });
    then("the last", [&] { swipe(7, -200); });
    then("the first", [&] { swipe(0, -200); });
    then("of the same words the one that was meant", [&] {
        start({"same", "same", "x same"});
        list().arrayNote[1]->data = "the one";
        swipe(1, -200);
        EXPECT_FALSE(list().arrayNote[0]->data);
    });
}

TEST_F(DeleteTest, IsRefusedWhileTyping)
{
    start({"One", "Two"});
    tapWords(0);
    then("refused", [&] { list().toDoItemDeleted(list().arrayNote[1]); });
    EXPECT_EQ(takeLines("❤️❤️ se la tastiera è attiva non faccio nulla").size(), 1u);
}

TEST_F(DeleteTest, AFullDiskKeepsTheListAndTheOldFile)
{
    start({"One", "Two", "Three"});
    failOn(HeadlessFiles::Operation::replace);
    then("on a full disk", [&] { swipe(0, -200); });
    EXPECT_EQ(takeLines("writ"), (Lines{"Unable to write to file!"}));
    failOnNothing();
    then("where there is room", [&] { swipe(0, -200); });
    EXPECT_EQ(takeLines("writ"), (Lines{"Success writing to file!"}));
}

using DeleteDeathTest = DeleteTest;

TEST_F(DeleteDeathTest, WhatCannotBe)
{
    start({});
    EXPECT_DEATH(list().toDoItemDeleted(std::make_shared<ToDoItem2>()), "no note at the place 0");
    start({"One"});
    host.files().setHidden("cancella.mp3");
    EXPECT_DEATH(swipe(0, -200), "The sound cancella.mp3 is missing");
}

} // namespace
} // namespace velmorath
