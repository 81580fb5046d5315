#include "ListTest.h"

namespace velmorath {
namespace {

class PullDownTest : public ListTest {
protected:
    const TableViewCell& placeHolder() const { return *list().placeHolderCell; }
    bool isPlaceHolderShown() const { return placeHolder().superview() != nullptr; }
};

TEST_F(PullDownTest, ExactlyOneRowDeepAddsNothing)
{
    // On a table of two rows the rubber gives exactly half of its height for this way.
    host.screen().setSize({320, 176});
    start({"One", "Two"});
    Finger finger = beginPull(60);
    ASSERT_EQ(table().contentOffset().y, -60.0);
    EXPECT_EQ(placeHolder().alpha(), 1.0);
    EXPECT_EQ(placeHolder().label->text(), "Pull to add item");
    takeLines();
    finger.lift();
    EXPECT_EQ(takeLines(), (Lines{"scrollViewDidEndDragging"}));
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
}

TEST_F(PullDownTest, ReleasedDeeperThanOneRowAddsANoteAndTypesIntoIt)
{
    start({"One"});
    const int written = host.files().replacements();
    Finger finger = beginPull(60.5);
    EXPECT_EQ(countLines("❤️❤️❤️❤️❤️❤️ il valore è nan"), 1u);
    finger.lift();
    EXPECT_EQ(countLines("toDoItemAdded"), 1u);
    EXPECT_EQ(shown(), (Lines{"", "One"}));
    EXPECT_TRUE(list().tastieraAttiva);
    EXPECT_EQ(host.files().replacements(), written);

    host.advance(2);
    EXPECT_EQ(host.textInput().frame().midY(), 30);
    type("Zero");
    EXPECT_EQ(saved(), (Lines{"Zero", "One"}));
    EXPECT_EQ(list().arrayNote[0]->data, "Nov 22, 2026");
    EXPECT_EQ(badge(), 2);
}

TEST_F(PullDownTest, GoingBackBelowTheTopEndsThePull)
{
    start(numbers(10));
    Finger finger = beginPull(70);
    EXPECT_TRUE(list().pullDownInProgress);
    finger.moveTo({200, 10});
    EXPECT_GT(table().contentOffset().y, 0);
    EXPECT_FALSE(list().pullDownInProgress);
    movePull(finger, 70);
    EXPECT_LT(table().contentOffset().y, -60);
    finger.lift();
    EXPECT_EQ(notes().size(), 10u);
}

TEST_F(PullDownTest, ADragThatStartsFurtherDownNeverPulls)
{
    start(numbers(10));
    scroll(-30);
    ASSERT_EQ(table().contentOffset().y, 30);
    Finger finger(host, {200, 10});
    finger.moveTo({200, 400});
    EXPECT_LT(table().contentOffset().y, -60);
    EXPECT_FALSE(isPlaceHolderShown());
    finger.lift();
    EXPECT_EQ(notes().size(), 10u);
}

TEST_F(PullDownTest, APullThatTheMachineTakesAwayAddsNothing)
{
    start({"One"});
    beginPull(100).cancel();
    EXPECT_EQ(notes(), (Lines{"One"}));
    EXPECT_FALSE(isPlaceHolderShown());
    EXPECT_EQ(table().contentOffset().y, 0);
    host.wheel({100, 100}, 5000);
    EXPECT_EQ(table().contentOffset().y, 0) << "the wheel never pulls";
}

using PullDownDeathTest = PullDownTest;

TEST_F(PullDownDeathTest, ANoteCannotBeInsertedOutsideTheList)
{
    start({"One"});
    EXPECT_DEATH(list().toDoItemAddedAtIndex(-1), "outside the list");
    EXPECT_DEATH(list().toDoItemAddedAtIndex(2), "outside the list");
    list().tableView.reset();
    EXPECT_DEATH(Finger(host, {200, 10}).moveBy({0, 60}), "table is not connected");
}

} // namespace
} // namespace velmorath
