#include "ListTest.h"

namespace velmorath {
namespace {

constexpr CGFloat lastOffset = 40 * 60 - 480;

class UIScrollViewTest : public ListTest {
protected:
    UIScrollViewTest() { start(Lines(40, "note")); }

    CGFloat offset() const { return table().contentOffset().y; }
    /// Throws the list upwards (negative) or downwards.
    void flick(CGFloat points)
    {
        Finger finger(host, {200, points < 0 ? 460.0 : 20.0});
        finger.moveBy({0, points}, 5);
        finger.lift();
    }
};

TEST_F(UIScrollViewTest, TheContentFollowsTheFingerAndGivesLessAndLessPastItsEnd)
{
    Finger finger(host, {200, 400});
    finger.moveBy({0, -9}, 1);
    finger.moveBy({0, -3}, 1);
    EXPECT_EQ(offset(), 0);
    finger.moveBy({30, -200});
    EXPECT_EQ(table().contentOffset(), (CGPoint{0, 200}));
    finger.hold();
    finger.lift();
    host.advance(1);
    EXPECT_EQ(offset(), 200);

    host.wheel({100, 100}, -5000);
    ASSERT_EQ(offset(), lastOffset);
    Finger beyond(host, {200, 470});
    beyond.moveBy({0, -10}, 1);
    beyond.moveBy({0, -200});
    const CGFloat first = offset() - lastOffset;
    EXPECT_GT(first, 60);
    EXPECT_LT(first, 110);
    beyond.moveBy({0, -200});
    EXPECT_LT(offset() - lastOffset - first, first);
    beyond.moveBy({0, 410});
    EXPECT_LE(offset(), lastOffset);
    beyond.lift();
}

TEST_F(UIScrollViewTest, AFlickRunsOnSlowerAndSlowerAndBouncesAtTheEnd)
{
    flick(-100);
    const CGFloat atRelease = offset();
    host.advance(0.2);
    const CGFloat first = offset() - atRelease;
    host.advance(0.2);
    const CGFloat second = offset() - atRelease - first;
    EXPECT_GT(first, 100);
    EXPECT_GT(second, 10);
    EXPECT_LT(second, first);

    Finger slow(host, {200, 400});
    slow.moveBy({0, -60});
    slow.lift();
    const CGFloat letGo = offset();
    host.advance(1);
    EXPECT_GT(offset(), letGo + 10);

    CGFloat farthest = 0;
    for (int i = 0; i < 6; ++i) {
        flick(-300);
        for (int frame = 0; frame < 30; ++frame) {
            host.advance(1.0 / 60);
            farthest = std::max(farthest, offset());
        }
    }
    EXPECT_GT(farthest, lastOffset);
    host.advance(3);
    EXPECT_EQ(offset(), lastOffset);
    for (int i = 0; i < 8; ++i) {
        flick(100);
        host.advance(2);
    }
    EXPECT_EQ(offset(), 0);
    EXPECT_EQ(notes().size(), 40u);
    EXPECT_FALSE(table().isDecelerating());
}

TEST_F(UIScrollViewTest, ATouchThatStopsTheMomentumSelectsNothing)
{
    flick(-150);
    host.advance(0.1);
    Finger finger(host, {20, 200});
    const CGFloat stopped = offset();
    host.advance(0.1);
    finger.lift();
    host.advance(0.2);
    EXPECT_EQ(offset(), stopped);
    EXPECT_FALSE(presented());
    EXPECT_FALSE(host.textInput().isEditing());
    tap({240, 200});
    EXPECT_TRUE(presented());
}

TEST_F(UIScrollViewTest, AListCaughtWhileItSpringsBackDoesNotJump)
{
    beginPull(50).lift();
    host.advance(0.1);
    const CGFloat caught = offset();
    ASSERT_LT(caught, -1);
    Finger finger(host, {200, 100});
    EXPECT_EQ(offset(), caught);
    finger.moveBy({0, 1}, 1);
    EXPECT_NEAR(offset(), caught, 1);
    EXPECT_LT(offset(), caught);
    finger.lift();
    host.advance(2);
    EXPECT_EQ(offset(), 0);
}

TEST_F(UIScrollViewTest, TheWheelStopsAtTheEndsAndAShortListIsOnlyPulled)
{
    flick(-200);
    host.wheel({100, 100}, -1);
    EXPECT_FALSE(table().isDecelerating());
    host.wheel({100, 100}, -1e9);
    EXPECT_EQ(offset(), lastOffset);
    host.wheel({100, 500}, 50);
    EXPECT_EQ(offset(), lastOffset) << "it is not over the list";

    start({"One", "Two"});
    host.wheel({100, 100}, -100);
    EXPECT_EQ(offset(), 0);
    Finger finger(host, {200, 300});
    finger.moveBy({0, -150});
    const CGFloat pulled = offset();
    EXPECT_GT(pulled, 0);
    host.wheel({100, 100}, 10);
    EXPECT_EQ(offset(), pulled) << "a finger has it";
    finger.lift();
    host.advance(2);
    EXPECT_EQ(offset(), 0);
}

} // namespace
} // namespace velmorath
