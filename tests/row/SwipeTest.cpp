#include "ListTest.h"

namespace velmorath {
namespace {

class SwipeTest : public ListTest {
protected:
    CGFloat shownX() { return row(0).layer().presented(host.clock().now()).position.x; }
    CGRect restingFrame(std::size_t place) const { return CGRectMake(0, place * 60.0, 320, 60); }
};

TEST_F(SwipeTest, MoreThanHalfToTheRightCompletesAndReopens)
{
    start({"One", "Two"});
    for (const bool completes : {true, false}) {
        const Lines before = notes();
        swipe(0, 160);
        EXPECT_EQ(row(0).frame(), restingFrame(0));
        EXPECT_NEAR(shownX(), 320, 1e-9);
        EXPECT_EQ(notes(), before);
        host.advance(0.3);
        // It follows sideways only.
        Finger finger = beginSwipe(0, 80);
        finger.moveBy({81, 40});
        EXPECT_EQ(row(0).frame(), CGRectMake(161, 0, 320, 60));
        finger.lift();
        EXPECT_EQ(saved(), (Lines{completes ? "x One" : "One", "Two"}));
        EXPECT_EQ(row(0).label->strikeThrough(), completes);
        EXPECT_EQ(row(0).itemCompleteLayer->isHidden(), !completes);
        host.advance(0.1);
        EXPECT_GT(shownX(), 160);
        host.advance(0.2);
        EXPECT_EQ(shownX(), 160);
    }
}

TEST_F(SwipeTest, MoreThanHalfToTheLeftDeletes)
{
    start({"One", "Two"});
    swipe(0, -160);
    EXPECT_EQ(row(0).frame(), restingFrame(0));
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
    host.advance(0.3);
    swipe(0, -161);
    EXPECT_EQ(saved(), (Lines{"Two"}));
}

TEST_F(SwipeTest, DiagonalAndSteepStartsAreTheTables)
{
    start(Lines(20, "note"));
    for (const CGVector way : {CGVector{-40, -40}, CGVector{40, -41}}) {
        const CGFloat before = table().contentOffset().y;
        Finger finger(host, {200, 300});
        finger.moveBy(way, 4);
        finger.moveBy({-200, 0});
        EXPECT_GT(table().contentOffset().y, before);
        for (const auto& cell : rows())
            EXPECT_EQ(cell->frame().origin.x, 0);
        finger.hold();
        finger.lift();
    }
    EXPECT_EQ(countLines("handlePan"), 0u);
    EXPECT_EQ(countLines("gestureRecognizerShouldBegin"), 2u);

    const CGFloat before = table().contentOffset().y;
    Finger finger(host, {100, 300});
    finger.moveBy({41, -40}, 4);
    finger.moveBy({0, -200});
    EXPECT_EQ(table().contentOffset().y, before);
    finger.lift();
}

TEST_F(SwipeTest, ACancelledDragLeavesTheRowUntilTheNext)
{
    start({"One"});
    beginSwipe(0, 200).cancel();
    host.advance(1);
    EXPECT_EQ(row(0).frame().origin.x, 200);
    EXPECT_EQ(notes(), (Lines{"One"}));
    Finger finger(host, {300, 30});
    finger.moveBy({-100, 0});
    EXPECT_EQ(row(0).frame().origin.x, 100);
    finger.lift();
    EXPECT_EQ(row(0).frame(), restingFrame(0));
}

using SwipeDeathTest = SwipeTest;

TEST_F(SwipeDeathTest, WhatCannotBe)
{
    start({"One"});
    row(0).delegate = nullptr;
    EXPECT_DEATH(swipe(0, 200), "without a delegate completed");

    const auto alone = std::make_shared<TableViewCell>(UITableViewCellStyle::standard, "cell");
    const UITouches touch{std::make_shared<UITouch>(CGPoint{20, 30}, 0, alone)};
    UIGestureRecognizer& pan = *alone->gestureRecognizers().front();
    pan.touchesBegan(touch);
    touch.front()->moveTo({50, 30}, 0.1);
    EXPECT_DEATH(pan.touchesMoved(touch), "not in a table was swiped");
    pan.touchesCancelled(touch);
}

} // namespace
} // namespace velmorath
