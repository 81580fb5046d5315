#include "FilesOnDisk.h"
#include "KeyedUnarchiver.h"
#include "Story.h"
#include "ToDoItem.h"

namespace velmorath {
namespace {

using TableViewCellTest = Story;

TEST_F(TableViewCellTest, ATapOnTheWordsEditsThemAndAnywhereElseOpensTheNote)
{
    start({"Milk", "Bread"});
    const auto tapped = [this](CGPoint point) {
        then("at " + std::to_string(std::lround(point.x)) + ", " + std::to_string(std::lround(point.y)),
            [&] { tap(point); });
        // Whichever it was.
        then("done", [&] { host.press(HostKey::escape), host.textInput().pressReturn(); });
    };
    // Four characters of 9.6 points from x = 15; 44 points high around the middle.
    for (const CGPoint onWords : {CGPoint{16, 30}, CGPoint{53, 30}, CGPoint{20, 9}, CGPoint{20, 51}})
        tapped(onWords);
    for (const CGPoint beside : {CGPoint{10, 30}, CGPoint{55, 30}, CGPoint{20, 6}, CGPoint{20, 55}})
        tapped(beside);
    start({"שלום"});
    then("words from the right are where they are, below the date", 0);
    tapped({20, 30});
    tapped({290, 30});
    start({"שלום שלום שלום שלום שלום שלום שלום שלום שלום"});
    then("long ones leave the date's column, so that the note can be opened", 0);
    tapped({290, 30});
    tapped({200, 30});
    start({"x Done"});
    then("a completed one cannot be edited", [&] { tapWords(0); });
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
    TableViewCell cell(UITableViewCellStyle::standard, "cell");
    EXPECT_DEATH(cell.setToDoItem(nullptr), "bound to no note");
    EXPECT_DEATH(unarchive<TableViewCell>(), "NSCoding not supported");
    EXPECT_DEATH(unarchive<StrikeThroughText>(), "NSCoding not supported");
    EXPECT_DEATH(ToDoItem(), "unimplemented initializer 'init\\(\\)' for class 'Velmorath.ToDoItem'");
}

} // namespace
} // namespace velmorath
