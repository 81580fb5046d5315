#include "Story.h"

namespace velmorath {
namespace {

using PullDownTest = Story;

TEST_F(PullDownTest, ReleasedDeeperThanOneRowAddsANote)
{
    // On a table of two rows the rubber gives exactly half of its height for this way.
    host.screen().setSize({320, 176});
    start({"One", "Two"});
    then("exactly one row deep adds nothing", [&] { beginPull(60).lift(); });
    const int written = host.files().replacements();
    then("deeper", 0, [&] { beginPull(60.5).lift(); });
    EXPECT_EQ(host.files().replacements(), written) << "what is not typed yet is not saved";
    then("the list springs back", 1);
    then("typed", [&] { type("Zero"); });
    EXPECT_EQ(list().arrayNote[0]->data, "Nov 22, 2026");
}

TEST_F(PullDownTest, OnlyADragThatBeginsAndEndsAtTheTopIsOne)
{
    start(numbers(10));
    then("up past the top and down again", [&] {
        Finger finger = beginPull(70);
        finger.moveTo({200, 17});
        movePull(finger, 70);
        finger.lift();
    });
    then("the machine takes it away", [&] { beginPull(100).cancel(); });
    then("the wheel", [&] { host.wheel({100, 100}, 5000); });
    then("from further down", [&] {
        scroll(-30);
        Finger finger(host, {200, 10});
        finger.moveTo({200, 400});
        finger.lift();
    });
    EXPECT_FALSE(list().placeHolderCell->superview());
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
