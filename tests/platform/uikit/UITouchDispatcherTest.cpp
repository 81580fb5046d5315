#include "Story.h"

namespace velmorath {
namespace {

using Phase = HostTouch::Phase;

class UITouchDispatcherTest : public Story {
protected:
    UITouchDispatcherTest() { start({"One", "Two", "Three"}); }
};

TEST_F(UITouchDispatcherTest, WrongSequencesAreIgnored)
{
    then("a finger that never came", [&] {
        for (const Phase phase : {Phase::moved, Phase::ended, Phase::cancelled})
            host.touch({{7, phase, {20, 30}}});
    });
    then("one that comes and goes twice", [&] {
        host.touch({{1, Phase::began, {20, 30}}});
        host.touch({{1, Phase::began, {20, 90}}});
        host.touch({{1, Phase::ended, {20, 30}}});
        host.touch({{1, Phase::ended, {20, 30}}});
    });
}

TEST_F(UITouchDispatcherTest, ASlipOfTheFingerIsStillATapAndMoreIsNot)
{
    for (const auto& [what, way] : {std::pair{"more", 8.0}, {"a slip", 6.0}}) {
        Finger finger(host, {20, 30});
        finger.moveBy({way, way}, 2);
        finger.moveBy({-way, -way}, 2);
        then(what, [&] { finger.lift(); });
    }
}

TEST_F(UITouchDispatcherTest, NoOtherFingerDoesAnythingDuringAGesture)
{
    Finger before(host, {292, 508}, 2);
    Finger swiping = beginSwipe(0, 100);
    Finger during(host, {20, 90}, 3);
    then("others let go", 0, [&] { during.lift(), before.lift(); });
    then("swiped", [&] { swiping.moveBy({100, 0}), swiping.lift(); });
}

TEST_F(UITouchDispatcherTest, AButtonIsPressedWhereTheFingerLeavesIt)
{
    tellScreen();
    for (const CGPoint where : {CGPoint{200, 300}, CGPoint{70, 490}}) {
        Finger finger(host, {28, 508});
        finger.moveTo(where);
        then(where.x == 70 ? "near" : "far away", [&] { finger.lift(); });
    }
}

} // namespace
} // namespace velmorath
