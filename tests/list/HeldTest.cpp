#include "Story.h"

namespace velmorath {
namespace {

/// What happens to the list while a finger or an editor holds one of its rows.
using HeldTest = Story;

TEST_F(HeldTest, ASwipedRowStaysWhereTheFingerHasItAndMakesUpForTheReloadThen)
{
    start({"1", "2", "3", "4"});
    swipe(0, -200);
    Finger finger = beginSwipe(1, -200);
    then("the row before it is gone", 1);
    EXPECT_EQ(row(1).crossLabel->textColor(), UIColor::red());
    then("let go where it was", [&] { finger.moveBy({190, 0}), finger.lift(); });
}

TEST_F(HeldTest, ADraggedRowStaysInTheFingersHandAndCostsNoFramesWhileItIsStill)
{
    start({"1", "2", "3", "4"});
    tapReorder();
    for (const bool isReloadComing : {false, true}) {
        if (isReloadComing) {
            Finger other(host, {250, 150});
            other.moveBy({-200, 0});
            other.lift();
        }
        Finger finger(host, {295, 30});
        then("held", [&] { finger.moveTo({295, 90}, 6); });
        const int frames = host.framesPrepared();
        host.advance(1);
        EXPECT_EQ(host.framesPrepared(), frames);
        then("let go", [&] { finger.lift(); });
    }
}

TEST_F(HeldTest, ASwipeThatBeganWhileTypingComesToNothing)
{
    start({"1", "2", "3"});
    // The row that is typed into, which is at the top then, and the one below it.
    for (const std::size_t place : {0, 1}) {
        tapWords(1);
        host.advance(0.5);
        Finger finger = beginSwipe(place, -200);
        then("typed", [&] { type("2"); });
        then("let go", [&] { finger.moveBy({-13, 0}), finger.lift(); });
    }
}

TEST_F(HeldTest, TheRowOfADeletedNoteIsNotEditedAgain)
{
    constexpr CGPoint words{20, 30};
    constexpr CGPoint date{270, 13};
    for (const CGPoint emptied : {words, date}) {
        const CGPoint tapped = emptied == words ? date : words;
        start({"1", "2"});
        tapWords(0);
        type("with a date");
        host.advance(0.5);
        then("emptied", [&] { tap(emptied), host.textInput().replaceText(""); });
        then("tapped beside it", [&] { tap(tapped); });
    }
}

TEST_F(HeldTest, OutOfSightAndBackARowStillGoesToItsPlace)
{
    start({"1"});
    swipe(0, 100);
    host.client().stateChanged(HostState::background);
    host.client().stateChanged(HostState::active);
    const int frames = host.framesPrepared();
    host.advance(0.5);
    EXPECT_GT(host.framesPrepared(), frames + 5);
}

} // namespace
} // namespace velmorath
