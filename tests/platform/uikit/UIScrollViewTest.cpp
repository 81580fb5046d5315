#include "Story.h"

namespace velmorath {
namespace {

class UIScrollViewTest : public Story {
protected:
    UIScrollViewTest() { start(numbers(40)); }

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
    then("twelve points begin a drag", 0, [&] { finger.moveBy({0, -3}, 1); });
    then("with the finger", 0, [&] { finger.moveBy({30, -200}); });
    EXPECT_EQ(table().contentOffset().x, 0);
    then("let go when it stands", [&] { finger.hold(), finger.lift(); });

    then("the wheel", [&] { host.wheel({100, 100}, -5000); });
    Finger beyond(host, {200, 470});
    beyond.moveBy({0, -10}, 1);
    for (const auto& [what, way] : {std::pair{"past the end", -200.0}, {"farther", -200.0}, {"back", 410.0}})
        then(what, 0, [&, way = way] { beyond.moveBy({0, way}); });
    beyond.lift();
}

TEST_F(UIScrollViewTest, AFlickRunsOnSlowerAndSlowerAndBouncesAtTheEnd)
{
    then("a flick", 0, [&] { flick(-100); });
    for (const std::string what : {"runs on", "slower"})
        then(what, 0.2);
    Finger slow(host, {200, 400});
    slow.moveBy({0, -60});
    then("a slow one", 0, [&] { slow.lift(); });
    then("runs on, too", 1);

    for (int flicks = 0; flicks < 4; ++flicks)
        then("on", 0.5, [&] { flick(-300); });
    then("past the end", 0.1, [&] { flick(-300); });
    then("and back", 2);
    for (int flicks = 0; flicks < 6; ++flicks)
        flick(300);
    then("at the top nothing is added", 2);
    EXPECT_FALSE(table().isDecelerating());
}

TEST_F(UIScrollViewTest, ATouchThatStopsTheMomentumSelectsNothing)
{
    then("a flick", 0.1, [&] { flick(-150); });
    Finger finger(host, {20, 200});
    then("stopped", 0.1);
    then("let go", [&] { finger.lift(); });
    then("tapped", [&] { tap({240, 200}); });
}

TEST_F(UIScrollViewTest, AListCaughtWhileItSpringsBackDoesNotJump)
{
    then("it springs back", 0.1, [&] { beginPull(50).lift(); });
    Finger finger(host, {200, 100});
    then("caught", 0);
    then("drawn on", 0, [&] { finger.moveBy({0, 1}, 1); });
    then("let go", [&] { finger.lift(); });
}

TEST_F(UIScrollViewTest, TheWheelStopsAtTheEndsAndAShortListIsOnlyPulled)
{
    flick(-200);
    then("it ends a flick", [&] { host.wheel({100, 100}, -1); });
    then("the end", [&] { host.wheel({100, 100}, -1e9); });
    then("it is not over the list", [&] { host.wheel({100, 500}, 50); });

    start({"One", "Two"});
    then("a short list", [&] { host.wheel({100, 100}, -100); });
    Finger finger(host, {200, 300});
    then("pulled", 0, [&] { finger.moveBy({0, -150}); });
    then("a finger has it", 0, [&] { host.wheel({100, 100}, 10); });
    then("let go", [&] { finger.lift(); });
}

} // namespace
} // namespace velmorath
