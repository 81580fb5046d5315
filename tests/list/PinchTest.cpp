#include "ListTest.h"

namespace velmorath {
namespace {

class PinchTest : public ListTest {
protected:
    static constexpr CGFloat x = 100;

    /// Two fingers in the middle of two rows in sight.
    TwoFingers onRows(std::size_t upper, std::size_t lower)
    {
        return TwoFingers(host, {x, upper * 60.0 + 30}, {x, lower * 60.0 + 30});
    }
    CGFloat moved(std::size_t place) const { return row(place).transform().ty; }
    const TableViewCell& placeHolder() const { return *list().placeHolderCell; }
};

TEST_F(PinchTest, ReleasedWiderThanARowAddsANoteBetween)
{
    start(numbers(30));
    scroll(-180);
    ASSERT_EQ(table().contentOffset().y, 180);
    TwoFingers fingers = onRows(2, 3);
    // The pinch begins after four points each; the gap counts from there.
    fingers.spread(4, 4, 1);
    fingers.spread(35, 35, 2);
    fingers.lift();
    EXPECT_EQ(notes()[5], "5");
    EXPECT_EQ(notes()[6], "");
    EXPECT_EQ(notes()[7], "6");
    EXPECT_TRUE(row(3).label->isEditing());
    EXPECT_FALSE(placeHolder().superview());
    type("between");
    EXPECT_EQ(saved()[6], "between");

    TwoFingers next(host, {x, 400}, {x, 440});
    next.spread(10, 10);
    next.lift();
    EXPECT_EQ(notes().size(), 31u) << "the gap before is forgotten";
}

TEST_F(PinchTest, AGapNotHigherThanARowSlidesBack)
{
    start(numbers(6));
    TwoFingers fingers = onRows(1, 2);
    fingers.spread(4, 4, 1);
    fingers.spread(30, 30, 1);
    EXPECT_EQ(placeHolder().alpha(), 1.0);
    EXPECT_FALSE(list().pinchExceededRequiredDistance);
    fingers.lift();
    EXPECT_EQ(moved(1), 0);
    host.advance(0.1);
    EXPECT_LT(row(1).layer().presented(host.clock().now()).transform.ty, 0);
    host.advance(0.15);
    EXPECT_EQ(row(1).layer().presented(host.clock().now()).transform.ty, 0);
    EXPECT_EQ(notes(), numbers(6));
    EXPECT_FALSE(placeHolder().superview());
}

TEST_F(PinchTest, TheFingerThatWentFartherCounts)
{
    start(numbers(6));
    TwoFingers fingers = onRows(2, 3);
    fingers.spread(0, 8, 1);
    fingers.spread(0, 40, 4);
    EXPECT_EQ(moved(2), -40);
    EXPECT_EQ(moved(3), 40);
    fingers.spread(-10, -60, 4);
    EXPECT_EQ(moved(2), 0);
    EXPECT_EQ(placeHolder().alpha(), 0);
    fingers.lift();
    EXPECT_EQ(notes(), numbers(6));
}

TEST_F(PinchTest, OnlyNeighbouringRowsAreSpread)
{
    start(numbers(4));
    for (const auto& [upper, lower] : {std::pair{0, 2}, std::pair{3, 5}, std::pair{5, 6}}) {
        TwoFingers fingers = onRows(static_cast<std::size_t>(upper), static_cast<std::size_t>(lower));
        fingers.spread(50, 50);
        EXPECT_FALSE(list().pinchInProgress);
        EXPECT_FALSE(placeHolder().superview());
        for (std::size_t place = 0; place < 4; ++place)
            EXPECT_EQ(moved(place), 0);
        fingers.lift();
    }
    TwoFingers onOne(host, {x, 70}, {x, 110});
    onOne.spread(4, 4, 1);
    EXPECT_FALSE(list().pinchInProgress);
    onOne.lift();
    EXPECT_EQ(notes(), numbers(4));
}

TEST_F(PinchTest, NeverWhileTyping)
{
    start(numbers(4));
    tapWords(0);
    host.advance(0.5);
    TwoFingers fingers = onRows(1, 2);
    fingers.spread(50, 50);
    fingers.lift();
    EXPECT_EQ(notes(), numbers(4));
    EXPECT_TRUE(list().tastieraAttiva);
}

TEST_F(PinchTest, ACancelledPinchStaysUntilTheNextGesture)
{
    for (const bool isPulledNext : {false, true}) {
        start(numbers(4));
        TwoFingers fingers = onRows(0, 1);
        fingers.spread(4, 4, 1);
        fingers.spread(20, 20, 2);
        fingers.cancel();
        host.advance(1);
        EXPECT_EQ(moved(0), -20);
        EXPECT_EQ(moved(3), 20);
        EXPECT_TRUE(placeHolder().superview());
        if (isPulledNext) {
            // Upwards: nothing is pulled out of the top.
            Finger finger(host, {200, 400});
            finger.moveBy({0, -60});
            EXPECT_EQ(placeHolder().label->text(), "Pull to add item");
            EXPECT_EQ(placeHolder().frame(), CGRectMake(0, -60, 320, 60));
            finger.lift();
            continue;
        }
        TwoFingers next(host, {x, 400}, {x, 440});
        next.spread(10, 10);
        next.lift();
        EXPECT_EQ(moved(0), 0);
        EXPECT_EQ(moved(3), 0);
        EXPECT_FALSE(placeHolder().superview());
        EXPECT_EQ(notes(), numbers(4));
    }
}

using PinchDeathTest = PinchTest;

TEST_F(PinchDeathTest, WhatCannotBe)
{
    start(numbers(20));
    TwoFingers fingers = onRows(0, 1);
    fingers.spread(4, 4, 1);
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
