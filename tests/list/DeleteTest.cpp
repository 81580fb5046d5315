#include "ListTest.h"

namespace velmorath {
namespace {

class DeleteTest : public ListTest {
protected:
    CGFloat shownTop(const TableViewCell& cell)
    {
        const CALayerState shown = cell.layer().presented(host.clock().now());
        return shown.position.y - shown.bounds.size.height / 2;
    }
};

TEST_F(DeleteTest, TheRowsBelowCloseTheGapOneAfterAnother)
{
    start({"1", "2", "3", "4", "5"});
    const auto before = rows();
    swipe(1, -200);
    EXPECT_TRUE(before[1]->isHidden());
    host.advance(0.02);
    EXPECT_LT(shownTop(*before[2]), 120);
    EXPECT_EQ(shownTop(*before[3]), 180);
    host.advance(0.03);
    EXPECT_LT(shownTop(*before[3]), 180);
    EXPECT_EQ(shownTop(*before[4]), 240);
    EXPECT_EQ(shownTop(*before[0]), 0);

    // The last one starts after 0.06 s and takes 0.3 s; the table reloads when it is there.
    takeLines();
    host.advance(0.30);
    EXPECT_EQ(takeLines("tableView(tableView:"), Lines());
    host.advance(0.05);
    EXPECT_EQ(takeLines("tableView(tableView:").size(), 4u);
    EXPECT_EQ(shown(), (Lines{"1", "3", "4", "5"}));
    expectAllInPlace();
    EXPECT_EQ(row(3).backgroundColor(), (CGColor{0, 0.6, 1, 1}));
}

TEST_F(DeleteTest, AtTheEndOfALongListNothingStaysEmptyBelow)
{
    start(numbers(12));
    scroll(-240);
    ASSERT_EQ(table().contentOffset().y, 240);
    swipe(7, -200);
    host.advance(1);
    EXPECT_EQ(table().contentOffset().y, 180);
    EXPECT_EQ(shown(), (Lines{"3", "4", "5", "6", "7", "8", "9", "10"}));
    expectAllInPlace();
}

TEST_F(DeleteTest, ANoteIsFoundByWhatItIsNotByItsText)
{
    start({"same", "same", "x same"});
    const auto second = list().arrayNote[1];
    swipe(1, -200);
    ASSERT_EQ(notes(), (Lines{"same", "x same"}));
    EXPECT_NE(list().arrayNote[0], second);
}

TEST_F(DeleteTest, IsRefusedWhileTyping)
{
    start({"One", "Two"});
    tapWords(0);
    list().toDoItemDeleted(list().arrayNote[1]);
    EXPECT_EQ(takeLines("❤️❤️ se la tastiera è attiva non faccio nulla").size(), 1u);
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
}

TEST_F(DeleteTest, AFullDiskKeepsTheListAndTheOldFile)
{
    start({"One", "Two", "Three"});
    failOn(HeadlessFiles::Operation::replace);
    swipe(0, -200);
    host.advance(1);
    EXPECT_EQ(takeLines("writ"), (Lines{"Unable to write to file!"}));
    EXPECT_EQ(shown(), (Lines{"Two", "Three"}));
    EXPECT_EQ(saved(), (Lines{"One", "Two", "Three"}));
    failOnNothing();
    swipe(0, -200);
    EXPECT_EQ(countLines("Success writing to file!"), 1u);
    EXPECT_EQ(saved(), (Lines{"Three"}));
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
