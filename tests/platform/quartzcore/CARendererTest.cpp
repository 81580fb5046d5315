#include "ListTest.h"

namespace velmorath {
namespace {

class CARendererTest : public ListTest {
protected:
    void settle()
    {
        host.advance(1);
        host.takeDamage();
    }
};

TEST_F(CARendererTest, NothingToDoAsksForNoFrames)
{
    start({"One", "Two"});
    settle();
    const int frames = host.framesPrepared();
    host.advance(60);
    EXPECT_EQ(host.framesPrepared(), frames);

    tapWords(0);
    host.advance(1);
    const int whileTyping = host.framesPrepared();
    EXPECT_GT(whileTyping, frames);
    host.advance(60);
    EXPECT_EQ(host.framesPrepared(), whileTyping);
}

TEST_F(CARendererTest, ASwipeDrawsItsRowAndNothingElse)
{
    start({"One", "Two", "Three"});
    settle();
    Finger finger = beginSwipe(1, 100);
    const CGRect damage = host.takeDamage();
    EXPECT_EQ(damage.minY(), 60 - 17) << "the date stands a little out of its row";
    EXPECT_EQ(damage.maxY(), 120);
    EXPECT_EQ(damage.minX(), 0);
    EXPECT_EQ(damage.maxX(), 320);
    host.advance(1);
    EXPECT_TRUE(host.takeDamage().isNull());
    finger.lift();
}

TEST_F(CARendererTest, WhatLeavesIsDrawnOver)
{
    start({"One", "Two"});
    settle();
    row(1).setHidden(true);
    host.advance(0.1);
    EXPECT_EQ(host.takeDamage(), CGRectMake(0, 43, 320, 77));
    row(0).label->removeFromSuperview();
    host.advance(0.1);
    EXPECT_EQ(host.takeDamage(), CGRectMake(0, 0, 320, 60));
}

TEST_F(CARendererTest, ChangingPlacesIsAChange)
{
    start({"One", "Two"});
    const auto upper = std::make_shared<UIView>(CGRectMake(10, 200, 50, 50));
    const auto lower = std::make_shared<UIView>(CGRectMake(40, 200, 50, 50));
    upper->setBackgroundColor(UIColor::red());
    lower->setBackgroundColor(UIColor::green());
    table().addSubview(lower);
    table().addSubview(upper);
    settle();
    EXPECT_EQ(host.draw().colorAt({50, 220}), UIColor::red());
    table().addSubview(lower);
    host.advance(0.1);
    EXPECT_TRUE(host.takeDamage().contains({50, 220}));
    EXPECT_EQ(host.draw().colorAt({50, 220}), UIColor::green());
}

TEST_F(CARendererTest, OnlyThePartThatIsAskedForIsDrawn)
{
    start({"One", "Two", "Three"});
    settle();
    DrawingRecorder recorder;
    host.client().draw(recorder, CGRectMake(0, 70, 100, 10));
    EXPECT_FALSE(recorder.text("One"));
    EXPECT_TRUE(recorder.text("Two"));
    EXPECT_FALSE(recorder.text("Three"));
}

} // namespace
} // namespace velmorath
