#include "Story.h"

namespace velmorath {
namespace {

class PinchTest : public Story {
protected:
    /// Two fingers in the middle of two rows in sight, far enough apart for the pinch to have begun: the gap
    /// counts from there.
    TwoFingers pinch(std::size_t upper, std::size_t lower)
    {
        TwoFingers fingers(host, {100, upper * 60.0 + 30}, {100, lower * 60.0 + 30});
        fingers.spread(4, 4, 1);
        return fingers;
    }
    /// As short as a pinch can be.
    void pinchElsewhere()
    {
        TwoFingers fingers(host, {100, 400}, {100, 440});
        fingers.spread(4, 4, 1);
        fingers.lift();
    }
};

TEST_F(PinchTest, ReleasedWiderThanARowAddsANoteBetween)
{
    start(numbers(30));
    then("scrolled", [&] { scroll(-180); });
    TwoFingers wide = pinch(2, 3);
    then("wide", 0, [&] { wide.spread(35, 35, 2); });
    then("let go", [&] { wide.lift(); });
    then("typed", [&] { type("between"); });
    then("the gap before is forgotten", [&] { pinchElsewhere(); });
}

TEST_F(PinchTest, AGapNotHigherThanARowSlidesBack)
{
    start(numbers(6));
    TwoFingers fingers = pinch(1, 2);
    then("as high as a row", 0, [&] { fingers.spread(30, 30, 1); });
    then("it slides back", 0.1, [&] { fingers.lift(); });
    then("and is there", 0.15);
}

TEST_F(PinchTest, TheFingerThatWentFartherCounts)
{
    start(numbers(6));
    TwoFingers fingers = pinch(2, 3);
    then("only the lower one", 0, [&] { fingers.spread(0, 40, 4); });
    then("back and towards each other", 0, [&] { fingers.spread(-10, -60, 4); });
    then("let go", [&] { fingers.lift(); });
}

TEST_F(PinchTest, OnlyNeighbouringRowsAreSpread)
{
    start(numbers(4));
    for (const auto& [upper, lower] : {std::pair<std::size_t, std::size_t>{0, 2}, {3, 5}, {5, 6}, {1, 1}}) {
        TwoFingers fingers(host, {100, upper * 60.0 + 20}, {100, lower * 60.0 + 40});
        then(std::to_string(upper) + " and " + std::to_string(lower), 0, [&] { fingers.spread(50, 50); });
        then("let go", [&] { fingers.lift(); });
    }
    then("while a note is typed", [&] {
        tapWords(0);
        host.advance(0.5);
        TwoFingers fingers = pinch(1, 2);
        fingers.spread(50, 50);
        fingers.lift();
    });
}

TEST_F(PinchTest, ACancelledPinchStaysUntilTheNextGesture)
{
    start(numbers(4));
    const auto cancel = [&] {
        TwoFingers fingers = pinch(0, 1);
        fingers.spread(40, 40, 2);
        fingers.cancel();
    };
    then("taken away", cancel);
    EXPECT_TRUE(list().placeHolderCell->superview());
    then("the next one ends", [&] { pinchElsewhere(); });
    EXPECT_FALSE(list().placeHolderCell->superview());
    then("taken away", cancel);
    // Upwards: nothing is pulled out of the top.
    Finger finger(host, {200, 400});
    then("pulled", [&] { finger.moveBy({0, -60}); });
    EXPECT_EQ(list().placeHolderCell->label->text(), "Pull to add item");
    EXPECT_EQ(list().placeHolderCell->frame(), CGRectMake(0, -60, 320, 60));
    finger.lift();
}

using PinchDeathTest = PinchTest;

TEST_F(PinchDeathTest, WhatCannotBe)
{
    start(numbers(20));
    TwoFingers fingers = pinch(0, 1);
    fingers.spread(40, 40, 2);
    list().lowerCellIndex = 100;
    EXPECT_DEATH(fingers.lift(), "outside the list");
    list().lowerCellIndex = std::numeric_limits<std::int64_t>::max();
    table().setContentOffset({0, 60});
    EXPECT_DEATH(fingers.lift(), "too far down");
    list().initialTouchPoints.reset();
    EXPECT_DEATH(fingers.spread(1, 1, 1), "had not started");
    list().tableView.reset();
    EXPECT_DEATH(fingers.spread(1, 1, 1), "table is not connected");
}

} // namespace
} // namespace velmorath
