#include "Story.h"

namespace velmorath {
namespace {

using SwipeTest = Story;

TEST_F(SwipeTest, MoreThanHalfToTheRightCompletesAndReopensAndToTheLeftDeletes)
{
    start({"One", "Two"});
    for (const std::string what : {"completes", "reopens"}) {
        then("half", 0.1, [&] { swipe(0, 160); });
        host.advance(0.3);
        Finger finger = beginSwipe(0, 80);
        then("more, and sideways only", 0, [&] { finger.moveBy({81, 40}); });
        then(what, 0.1, [&] { finger.lift(); });
        then("back in its place", 0.1);
    }
    then("half", [&] { swipe(0, -160); });
    Finger cancelled = beginSwipe(0, 200);
    then("taken away", [&] { cancelled.cancel(); });
    then("the next one goes on from there", [&] {
        Finger next(host, {300, 30});
        next.moveBy({-100, 0});
        next.lift();
    });
    then("more", [&] { swipe(0, -161); });
}

TEST_F(SwipeTest, DiagonalAndSteepStartsAreTheTables)
{
    start(numbers(20));
    for (const CGVector way : {CGVector{-40, -40}, CGVector{40, -41}, CGVector{41, -40}}) {
        Finger finger(host, {100, 300});
        then("another start", 0, [&] { finger.moveBy(way, 4), finger.moveBy({-50, -200}); });
        then("let go", [&] { finger.hold(), finger.lift(); });
    }
    EXPECT_EQ(takeLines("gestureRecognizerShouldBegin").size(), 3u);
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
