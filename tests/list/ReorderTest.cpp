#include "ListTest.h"

namespace velmorath {
namespace {

class ReorderTest : public ListTest {
protected:
    Finger grip(std::size_t place) { return Finger(host, {295, place * 60.0 + 30}); }
    void moveRow(std::size_t from, std::size_t to)
    {
        Finger finger = grip(from);
        finger.moveTo({295, to * 60.0 + 30});
        finger.lift();
    }
};

TEST_F(ReorderTest, TheButtonGoesIntoTheModeAndBack)
{
    start({"One", "Two", "Three"});
    moveRow(0, 2);
    EXPECT_EQ(notes(), (Lines{"One", "Two", "Three"}));
    host.advance(1);
    takeLines();
    tapReorder();
    EXPECT_EQ(takeLines("settaggi"), (Lines{"settaggi"}));
    EXPECT_TRUE(table().isEditing());
    moveRow(0, 2);
    EXPECT_EQ(notes(), (Lines{"Two", "Three", "One"}));
    tapBesideWords(1);
    EXPECT_FALSE(presented());
    tapReorder();
    EXPECT_FALSE(table().isEditing());
    tap({295, 90});
    EXPECT_TRUE(presented());
}

TEST_F(ReorderTest, TheListChangesWhenTheRowIsLetGo)
{
    start({"One", "Two", "Three", "Four"});
    tapReorder();
    Finger finger = grip(2);
    finger.moveTo({295, 30});
    EXPECT_EQ(notes(), (Lines{"One", "Two", "Three", "Four"}));
    EXPECT_EQ(shown(), (Lines{"Three", "One", "Two", "Four"}));
    finger.lift();
    EXPECT_EQ(saved(), (Lines{"Three", "One", "Two", "Four"}));
    EXPECT_EQ(shown(), saved());
    host.advance(1);
    EXPECT_FALSE(row(0).layer().model().shadow);
}

TEST_F(ReorderTest, ADragThatIsTakenAwayPutsTheRowBack)
{
    start({"One", "Two", "Three"});
    tapReorder();
    takeLines();
    Finger finger = grip(0);
    finger.moveTo({295, 150});
    finger.cancel();
    host.advance(1);
    EXPECT_EQ(countLines("moveRowAtIndexPath"), 0u);
    EXPECT_EQ(shown(), (Lines{"One", "Two", "Three"}));
    expectAllInPlace();
}

TEST_F(ReorderTest, ARowHeldAtTheEndScrollsTheList)
{
    const Lines many = numbers(30);
    start(many);
    tapReorder();
    Finger finger = grip(0);
    finger.moveTo({295, 470});
    host.advance(1);
    EXPECT_GT(table().contentOffset().y, 200);
    host.advance(10);
    EXPECT_EQ(table().contentOffset().y, 30 * 60 - 480);
    finger.moveTo({295, 479});
    finger.lift();
    EXPECT_EQ(notes().back(), "0");
    EXPECT_EQ(notes().front(), "1");
    host.advance(1);
    EXPECT_EQ(shown().back(), "0");
    EXPECT_EQ(shown().front(), "23");

    Finger back = grip(7);
    back.moveTo({295, 5});
    host.advance(10);
    back.lift();
    EXPECT_EQ(notes(), many);
    EXPECT_EQ(saved(), many);
}

} // namespace
} // namespace velmorath
