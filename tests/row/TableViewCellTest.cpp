#include "FilesOnDisk.h"
#include "KeyedUnarchiver.h"
#include "ListTest.h"
#include "ToDoItem.h"

namespace velmorath {
namespace {

class TableViewCellTest : public ListTest {
protected:
    std::shared_ptr<TableViewCell> cell =
        std::make_shared<TableViewCell>(UITableViewCellStyle::standard, "cell");
};

TEST_F(TableViewCellTest, ATapOnTheWordsEditsThemAndAnywhereElseOpensTheNote)
{
    start({"Milk", "Bread"});
    // Four characters of 9.6 points from x = 15; 44 points high around the middle.
    for (const CGPoint onWords : {CGPoint{16, 30}, CGPoint{53, 30}, CGPoint{20, 9}, CGPoint{20, 51}}) {
        tap(onWords);
        EXPECT_TRUE(row(0).label->isEditing()) << onWords.x << ", " << onWords.y;
        host.textInput().pressReturn();
        host.advance(0.5);
    }
    EXPECT_FALSE(presented());
    for (const CGPoint beside : {CGPoint{10, 30}, CGPoint{55, 30}, CGPoint{20, 6}, CGPoint{20, 55}}) {
        tap(beside);
        EXPECT_FALSE(row(0).label->isEditing());
        ASSERT_TRUE(presented()) << beside.x << ", " << beside.y;
        leavePresented();
    }
}

TEST_F(TableViewCellTest, WordsFromTheRightAreTappedWhereTheyAre)
{
    // They end at the row's right end, below the date.
    start({"שלום"});
    tapWords(0);
    ASSERT_TRUE(presented());
    leavePresented();
    tap({290, 30});
    EXPECT_TRUE(row(0).label->isEditing());
    host.textInput().pressReturn();
    host.advance(0.5);
    // Those of a long note leave the date's column, so that the note can be opened.
    list().arrayNote[0]->text = "שלום שלום שלום שלום שלום שלום שלום שלום שלום";
    table().reloadData();
    host.advance(0.05);
    tap({290, 30});
    EXPECT_FALSE(row(0).label->isEditing());
    leavePresented();
    tap({200, 30});
    EXPECT_TRUE(row(0).label->isEditing());
}

TEST_F(TableViewCellTest, ACompletedNoteAndAPlaceholderCannotBeEdited)
{
    start({"x Done"});
    tapWords(0);
    EXPECT_FALSE(host.textInput().isEditing());
    EXPECT_TRUE(presented());

    EXPECT_FALSE(cell->label->becomeFirstResponder());
    EXPECT_FALSE(list().placeHolderCell->label->becomeFirstResponder());
}

using TableViewCellDeathTest = TableViewCellTest;

/// Makes an object as from an archive.
template <typename Archived> void unarchive()
{
    KeyedUnarchiver::setClass("Elsewhere.Thing",
        [](KeyedUnarchiver& unarchiver) { return std::make_shared<Archived>(unarchiver); });
    (void)KeyedUnarchiver::unarchiveTopLevelObject(
        contents(VELMORATH_CORPUS "/fuzz-archive/unknown-class.archive"));
}

TEST_F(TableViewCellDeathTest, WhatCannotBeMadeEndsTheProgram)
{
    EXPECT_DEATH(cell->setToDoItem(nullptr), "bound to no note");
    EXPECT_DEATH(unarchive<TableViewCell>(), "NSCoding not supported");
    EXPECT_DEATH(unarchive<StrikeThroughText>(), "NSCoding not supported");
    EXPECT_DEATH(ToDoItem(), "unimplemented initializer 'init\\(\\)' for class 'Velmorath.ToDoItem'");
}

} // namespace
} // namespace velmorath
