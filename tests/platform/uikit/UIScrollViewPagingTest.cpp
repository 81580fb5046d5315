#include "ScreenTest.h"
#include "UIScrollView.h"
#include <algorithm>

namespace velmorath {

namespace {

/// Three pages of 200 x 300 points side by side, in the middle of the screen.
class PagingTest : public ScreenTest, public UIScrollViewDelegate {
protected:
    PagingTest()
    {
        start();
        strip = add<UIScrollView>(CGRectMake(50, 100, 200, 300));
        strip->setContentSize({600, 300});
        strip->setPagingEnabled(true);
        strip->setBounces(false);
        strip->setScrollDelegate(this);
    }

    void scrollViewDidScroll(UIScrollView& view) override
    {
        EXPECT_EQ(view.contentOffset().y, 0);
        offsets.push_back(view.contentOffset().x);
    }
    void scrollViewDidEndDragging(UIScrollView&, bool willDecelerate) override
    {
        willComeToRestLater = willDecelerate;
    }

    /// Drags by so many points (the first ten start it) and holds still before letting go.
    void drag(CGFloat way)
    {
        Finger finger = beginDrag(way);
        finger.hold();
        finger.lift();
    }
    Finger beginDrag(CGFloat way)
    {
        Finger finger(host, {150, 200});
        finger.moveBy({way < 0 ? -10.0 : 10.0, 0}, 1);
        finger.moveBy({way, 0});
        return finger;
    }
    CGFloat settled()
    {
        host.advance(2);
        EXPECT_FALSE(strip->isDecelerating());
        return strip->contentOffset().x;
    }

    std::shared_ptr<UIScrollView> strip;
    std::vector<CGFloat> offsets;
    bool willComeToRestLater = false;
};

using ScrollDirectionsTest = ScreenTest;

} // namespace

TEST_F(PagingTest, ComesToRestAtTheNearestPage)
{
    drag(-90);
    EXPECT_TRUE(willComeToRestLater);
    EXPECT_EQ(settled(), 0);
    drag(-100);
    EXPECT_EQ(settled(), 200) << "half-way is the later page";
    drag(-110);
    EXPECT_EQ(settled(), 400);
    drag(110);
    EXPECT_EQ(settled(), 200);
    EXPECT_EQ(framesInASecond(), 0);
}

TEST_F(PagingTest, AFlickTurnsOnePageHoweverFastItIs)
{
    Finger slow(host, {150, 200});
    slow.moveBy({-40, 0}, 6);
    slow.lift();
    EXPECT_EQ(settled(), 200) << "a short way is enough";

    strip->setContentOffset({0, 0});
    Finger fast(host, {240, 200});
    fast.moveBy({-180, 0}, 2);
    fast.lift();
    EXPECT_EQ(settled(), 200);
    EXPECT_LE(*std::max_element(offsets.begin(), offsets.end()), 200) << "it never swings past the page";

    Finger back(host, {150, 200});
    back.moveBy({40, 0}, 6);
    back.lift();
    EXPECT_EQ(settled(), 0);
}

TEST_F(PagingTest, NeverLeavesTheEnds)
{
    drag(150);
    EXPECT_FALSE(willComeToRestLater);
    Finger flick(host, {100, 200});
    flick.moveBy({100, 0}, 3);
    flick.lift();
    EXPECT_EQ(settled(), 0);
    strip->setContentOffset({400, 0});
    offsets.clear();
    drag(-150);
    drag(-20);
    EXPECT_EQ(settled(), 400);
    EXPECT_TRUE(offsets.empty());

    Finger upwards(host, {150, 200});
    upwards.moveBy({0, -90}, 4);
    upwards.lift();
    EXPECT_EQ(settled(), 400) << "nothing to scroll up and down";
}

TEST_F(PagingTest, ScrollsARectangleIntoSight)
{
    strip->scrollRectToVisible(CGRectMake(200, 61, 200, 300), true);
    EXPECT_TRUE(strip->isDecelerating());
    EXPECT_EQ(settled(), 200);
    EXPECT_TRUE(std::is_sorted(offsets.begin(), offsets.end()));
    EXPECT_GT(offsets.size(), 10u);

    strip->scrollRectToVisible(CGRectMake(250, 0, 100, 100), false);
    EXPECT_EQ(strip->contentOffset().x, 200) << "in sight already";
    strip->scrollRectToVisible(CGRectMake(350, 0, 100, 100), false);
    EXPECT_EQ(strip->contentOffset().x, 250) << "the least move";
    strip->scrollRectToVisible(CGRectMake(800, 0, 200, 300), false);
    EXPECT_EQ(strip->contentOffset().x, 400) << "beyond the end";
}

TEST_F(PagingTest, AWheelTurnsOnePageAtATime)
{
    host.wheel({150, 200}, -40);
    host.wheel({150, 200}, -40);
    EXPECT_EQ(settled(), 200);
    host.client().scrolled({150, 200}, {30, 0});
    EXPECT_EQ(settled(), 0);
    host.wheel({150, 200}, 40);
    EXPECT_EQ(settled(), 0);
}

TEST_F(ScrollDirectionsTest, GivesWayInTheDirectionsThatItScrolls)
{
    start();
    const auto list = add<UIScrollView>(CGRectMake(0, 0, 300, 400));
    list->setContentSize({300, 1000});
    Finger diagonal(host, {100, 100});
    diagonal.moveBy({60, 60}, 6);
    EXPECT_EQ(list->contentOffset().x, 0);
    EXPECT_LT(list->contentOffset().y, -20);
    diagonal.hold();
    diagonal.lift();
    host.advance(2);
    EXPECT_EQ(list->contentOffset(), (CGPoint{0, 0}));

    list->setContentSize({900, 1000});
    Finger both(host, {200, 300});
    both.moveBy({-10, -10}, 1);
    both.moveBy({-50, -70});
    EXPECT_EQ(list->contentOffset(), (CGPoint{50, 70}));
    both.moveBy({200, 0});
    EXPECT_LT(list->contentOffset().x, 0) << "sideways it is rubber, too";
    both.hold();
    both.lift();
    host.advance(2);
    EXPECT_EQ(list->contentOffset().x, 0);
    EXPECT_EQ(list->contentOffset().y, 70);
    host.client().scrolled({100, 100}, {-30, 1000});
    EXPECT_EQ(list->contentOffset(), (CGPoint{30, 0}));
}

} // namespace velmorath
