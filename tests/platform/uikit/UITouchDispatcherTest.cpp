#include "ListTest.h"

namespace velmorath {
namespace {

using Phase = HostTouch::Phase;

class UITouchDispatcherTest : public ListTest {
protected:
    UITouchDispatcherTest() { start({"One", "Two", "Three"}); }
};

TEST_F(UITouchDispatcherTest, WrongSequencesAreIgnored)
{
    host.touch({{7, Phase::moved, {20, 30}}});
    host.touch({{7, Phase::ended, {20, 30}}});
    host.touch({{7, Phase::cancelled, {20, 30}}});
    EXPECT_FALSE(host.textInput().isEditing());

    host.touch({{1, Phase::began, {20, 30}}});
    host.touch({{1, Phase::began, {20, 90}}});
    host.touch({{1, Phase::ended, {20, 30}}});
    host.touch({{1, Phase::ended, {20, 30}}});
    EXPECT_TRUE(row(0).label->isEditing());
}

TEST_F(UITouchDispatcherTest, ASlipOfTheFingerIsStillATapAndMoreIsNot)
{
    Finger slip(host, {20, 30});
    slip.moveBy({6, 6}, 2);
    slip.lift();
    EXPECT_TRUE(row(0).label->isEditing());
    host.textInput().pressReturn();
    host.advance(0.5);
    Finger drag(host, {20, 30});
    drag.moveBy({8, 8}, 2);
    drag.moveBy({-8, -8}, 2);
    drag.lift();
    EXPECT_FALSE(host.textInput().isEditing());
}

TEST_F(UITouchDispatcherTest, NoOtherFingerDoesAnythingDuringAGesture)
{
    Finger before(host, {292, 508}, 2);
    Finger swiping = beginSwipe(0, 100);
    Finger during(host, {20, 90}, 3);
    during.lift();
    before.lift();
    EXPECT_FALSE(host.textInput().isEditing() || presented());
    swiping.moveBy({100, 0});
    swiping.lift();
    EXPECT_EQ(saved(), (Lines{"x One", "Two", "Three"}));
}

TEST_F(UITouchDispatcherTest, AButtonIsPressedWhereTheFingerLeavesIt)
{
    Finger finger(host, {28, 508});
    finger.moveTo({200, 300});
    finger.lift();
    EXPECT_FALSE(table().isEditing());
    Finger near(host, {28, 508});
    near.moveTo({70, 490});
    near.lift();
    EXPECT_TRUE(table().isEditing());
}

} // namespace
} // namespace velmorath
