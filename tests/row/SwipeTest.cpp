#include "ListTest.h"

namespace velmorath {
namespace {

class SwipeTest : public ListTest {
protected:
    CGRect restingFrame(std::size_t place) const { return CGRectMake(0, place * 60.0, 320, 60); }
};

TEST_F(SwipeTest, TheRowFollowsSidewaysOnly)
{
    start({"One", "Two"});
    Finger finger = beginSwipe(0, 80);
    finger.moveBy({160, 40});
    EXPECT_EQ(row(0).frame(), CGRectMake(240, 0, 320, 60));
    EXPECT_EQ(row(0).tickLabel->alpha(), 1.5);
    EXPECT_EQ(row(1).frame(), restingFrame(1));
    EXPECT_EQ(table().contentOffset().y, 0);
    finger.moveBy({-160, 0});
    finger.lift();
    EXPECT_EQ(notes(), (Lines{"One", "Two"})) << "it came back";
}

TEST_F(SwipeTest, MoreThanHalfToTheRightCompletes)
{
    start({"One", "Two"});
    swipe(0, 160);
    EXPECT_EQ(row(0).frame(), restingFrame(0));
    EXPECT_NEAR(row(0).layer().presented(host.clock().now()).position.x, 320, 1e-9);
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
    host.advance(0.3);
    swipe(0, 161);
    EXPECT_EQ(saved(), (Lines{"x One", "Two"}));
    EXPECT_TRUE(row(0).label->strikeThrough());
    EXPECT_FALSE(row(0).itemCompleteLayer->isHidden());
    host.advance(0.1);
    EXPECT_GT(row(0).layer().presented(host.clock().now()).position.x, 160);
    host.advance(0.2);
    EXPECT_EQ(row(0).layer().presented(host.clock().now()).position.x, 160);
    EXPECT_EQ(host.draw().colorAt({200, 30}), (CGColor{0, 0.6, 0, 1}));

    host.advance(0.3);
    swipe(0, 161);
    EXPECT_EQ(saved(), (Lines{"One", "Two"}));
    EXPECT_FALSE(row(0).label->strikeThrough());
    EXPECT_TRUE(row(0).itemCompleteLayer->isHidden());
}

TEST_F(SwipeTest, MoreThanHalfToTheLeftDeletes)
{
    start({"One", "Two"});
    swipe(0, -160);
    EXPECT_EQ(row(0).frame(), restingFrame(0));
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
    host.advance(0.3);
    const std::shared_ptr<TableViewCell> deleted = rows()[0];
    Finger finger = beginSwipe(0, -161);
    EXPECT_EQ(deleted->crossLabel->textColor(), UIColor::red());
    EXPECT_EQ(deleted->tickLabel->textColor(), UIColor::white());
    finger.lift();
    EXPECT_EQ(deleted->frame(), CGRectMake(-161, 0, 320, 60));
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

TEST_F(SwipeTest, ARowOnItsOwnReportsNothing)
{
    const auto alone = std::make_shared<TableViewCell>(UITableViewCellStyle::standard, "cell");
    start({"One"});
    alone->setFrame(CGRectMake(0, 300, 320, 60));
    table().addSubview(alone);
    swipe(5, -200);
    EXPECT_EQ(alone->frame().origin.x, -200);
    beginSwipe(5, 400).lift();
    EXPECT_EQ(alone->frame(), CGRectMake(0, 300, 320, 60));
    EXPECT_FALSE(alone->label->strikeThrough());
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
