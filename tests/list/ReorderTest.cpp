#include "Story.h"

namespace velmorath {
namespace {

class ReorderTest : public Story {
protected:
    Finger grip(std::size_t place) { return Finger(host, {295, place * 60.0 + 30}); }
};

TEST_F(ReorderTest, RowsMoveInTheModeAloneWhenTheyAreLetGo)
{
    start({"One", "Two", "Three", "Four"});
    const auto move = [&] {
        Finger finger = grip(2);
        finger.moveTo({295, 30});
        finger.lift();
    };
    then("not yet", move);
    takeLines();
    tapReorder();
    EXPECT_EQ(takeLines("settaggi"), (Lines{"settaggi"}));
    then("nothing is opened meanwhile", [&] { tapBesideWords(1); });
    Finger finger = grip(2);
    then("dragged", 0, [&] { finger.moveTo({295, 30}); });
    then("let go", [&] { finger.lift(); });
    EXPECT_FALSE(row(0).layer().model().shadow);
    Finger cancelled = grip(0);
    then("dragged", 0, [&] { cancelled.moveTo({295, 150}); });
    then("taken away", [&] { cancelled.cancel(); });
    tapReorder();
    then("no more", move);
    then("opened where the handle was", [&] { tap({295, 90}); });
}

TEST_F(ReorderTest, ARowHeldAtTheEndScrollsTheList)
{
    start(numbers(30));
    tapReorder();
    Finger down = grip(0);
    then("held at the lower edge", [&] { down.moveTo({295, 470}); });
    then("for long", 10);
    then("let go", [&] { down.moveTo({295, 479}), down.lift(); });
    Finger up = grip(7);
    then("held at the upper edge", 10, [&] { up.moveTo({295, 5}); });
    then("let go", [&] { up.lift(); });
    EXPECT_EQ(saved(), numbers(30));
}

} // namespace
} // namespace velmorath
