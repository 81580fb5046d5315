#include "ListTest.h"

namespace velmorath {
namespace {

class TableViewCellTest : public ListTest {
protected:
    static std::shared_ptr<ToDoItem2> note(
        std::optional<std::string> text, std::optional<std::string> date = {}, bool completed = false)
    {
        auto made = std::make_shared<ToDoItem2>();
        made->text = std::move(text);
        made->data = std::move(date);
        made->completed = completed;
        return made;
    }

    std::shared_ptr<TableViewCell> cell =
        std::make_shared<TableViewCell>(UITableViewCellStyle::standard, "cell");
};

TEST_F(TableViewCellTest, PartsStandWhereTheyShall)
{
    cell->setFrame(CGRectMake(0, 0, 320, 60));
    cell->setToDoItem(note("Milk", {}, true));
    cell->layoutIfNeeded();
    EXPECT_EQ(takeLines(), (Lines{"layoutSubviews"}));
    EXPECT_EQ(cell->label->frame(), CGRectMake(15, 0, 305, 60));
    EXPECT_EQ(cell->labelData->frame(), CGRectMake(262.5, -17, 305, 60));
    EXPECT_EQ(cell->tickLabel->frame(), CGRectMake(-70, 0, 60, 60));
    EXPECT_EQ(cell->crossLabel->frame(), CGRectMake(330, 0, 60, 60));
    EXPECT_EQ(cell->gradientLayer->frame(), cell->bounds());
    EXPECT_EQ(cell->itemCompleteLayer->frame(), cell->bounds());
    EXPECT_EQ(cell->label->strikeThroughLayer->frame(), CGRectMake(0, 30, 50, 2));
    EXPECT_EQ(cell->label->minimumFontSize(), 12.0);
    EXPECT_EQ(cell->label->font(), UIFont::boldSystemFont(16));
    EXPECT_EQ(cell->labelData->font(), UIFont::boldSystemFont(8));

    const auto& layers = cell->layer().sublayers();
    ASSERT_GE(layers.size(), 2u);
    EXPECT_EQ(layers[0], cell->itemCompleteLayer);
    EXPECT_EQ(layers[1], cell->gradientLayer);
    const auto& views = cell->subviews();
    ASSERT_GE(views.size(), 4u);
    EXPECT_EQ(views.back(), cell->crossLabel);
    EXPECT_EQ(views[views.size() - 4], cell->label);
}

TEST_F(TableViewCellTest, ShowsTheNoteThatItIsBoundTo)
{
    cell->setToDoItem(note("Milk", "Nov 1, 2026", true));
    EXPECT_EQ(cell->label->text(), "Milk");
    EXPECT_EQ(cell->labelData->text(), "Nov 1, 2026");
    EXPECT_FALSE(cell->itemCompleteLayer->isHidden());
    EXPECT_FALSE(cell->label->strikeThroughLayer->isHidden());
    cell->setToDoItem(note({}));
    EXPECT_EQ(cell->label->text(), "");
    EXPECT_EQ(cell->labelData->text(), "");
    EXPECT_TRUE(cell->itemCompleteLayer->isHidden());
    EXPECT_TRUE(cell->label->strikeThroughLayer->isHidden());
}

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

TEST_F(TableViewCellTest, LongWordsLeaveTheDatesColumnAlone)
{
    start({std::string(60, 'm')});
    tap({260, 30});
    EXPECT_TRUE(row(0).label->isEditing());
    type("much shorter");
    host.advance(0.5);
    list().arrayNote[0]->text = std::string(60, 'm');
    table().reloadData();
    host.advance(0.05);
    tap({264, 40});
    EXPECT_FALSE(row(0).label->isEditing());
    ASSERT_TRUE(presented());
    leavePresented();
    tap({270, 13});
    EXPECT_TRUE(row(0).labelData->isEditing());
}

TEST_F(TableViewCellTest, WordsFromTheRightAreTappedWhereTheyAre)
{
    start({"שלום"});
    tapWords(0);
    ASSERT_TRUE(presented());
    leavePresented();
    // They end at the row's right end, under the date's column: what of them lies left of it counts.
    list().arrayNote[0]->text = "שלום שלום שלום";
    table().reloadData();
    host.advance(0.05);
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

TEST_F(TableViewCellTest, ReturnEndsTheEditingAndStampsTheNote)
{
    start({"Milk"});
    tapWords(0);
    EXPECT_EQ(host.textInput().traits(), (TextInputTraits{false, true, true, "Note"}));
    EXPECT_EQ(host.textInput().text(), "Milk");
    takeLines();
    host.textInput().pressReturn();
    const Lines lines = takeLines();
    ASSERT_GE(lines.size(), 6u);
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 6),
        (Lines{"textFieldShouldReturn", "textFieldDidEndEditing", "viewcontroller   -----   ottieniData",
            "👍👍👍👍👍👍 Local Time nuovaData : Nov 22, 2026", "Nov 22, 2026", "cellDidEndEditing:"}));
    EXPECT_FALSE(host.textInput().isEditing());
    EXPECT_EQ(list().arrayNote[0]->text, "Milk");
    EXPECT_EQ(list().arrayNote[0]->data, "Nov 22, 2026");
    EXPECT_EQ(row(0).labelData->text(), "Nov 22, 2026");

    host.clock().setWallTime(1795392000);
    host.advance(0.5);
    tapWords(0);
    host.textInput().pressReturn();
    EXPECT_EQ(list().arrayNote[0]->data, "Nov 23, 2026");
}

TEST_F(TableViewCellTest, TheDateIsEditedLikeTheText)
{
    start({"Milk"});
    tapWords(0);
    type("Milk");
    host.advance(0.5);
    tap({270, 13});
    ASSERT_TRUE(row(0).labelData->isEditing());
    EXPECT_EQ(host.textInput().traits(), (TextInputTraits{.label = "Date"}));
    type("Sunday");
    EXPECT_EQ(saved(), (Lines{"Sunday"}));
    EXPECT_EQ(row(0).labelData->text(), "Nov 22, 2026");
}

using TableViewCellDeathTest = TableViewCellTest;

TEST_F(TableViewCellDeathTest, NeedsANoteToBeBoundTo)
{
    EXPECT_DEATH(cell->setToDoItem(nullptr), "bound to no note");
}

} // namespace
} // namespace velmorath
