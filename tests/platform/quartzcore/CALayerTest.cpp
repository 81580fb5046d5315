#include "CALayer.h"
#include "CATimeline.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class CALayerTest : public ListTest {
protected:
    std::shared_ptr<UIView> view = std::make_shared<UIView>(CGRectMake(10, 20, 100, 60));

    CALayerState shownAt(double time) const { return view->layer().presented(time); }
    void moveTo(CGFloat x, double delay = 0)
    {
        UIView::animate(1, delay, [&] { view->setCenter({x, 0}); });
    }
    void show(double time)
    {
        host.clock().moveTo(time);
        CATimeline::main().advance(time);
    }
};

TEST_F(CALayerTest, TheFrameComesFromCentreBoundsAndTransform)
{
    view->setTransform(CGAffineTransform::translation(5, -7));
    EXPECT_EQ(view->frame(), CGRectMake(15, 13, 100, 60));
    EXPECT_EQ(view->center(), (CGPoint{60, 50}));
    view->setFrame(CGRectMake(0, 0, 40, 40));
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 40, 40));
    view->setTransform(CGAffineTransform::identity());
    EXPECT_EQ(view->frame(), CGRectMake(-5, 7, 40, 40));
    view->setTransform(CGAffineTransform::scale(1, 0.5));
    EXPECT_EQ(view->frame(), CGRectMake(-5, 17, 40, 20));
    view->setFrame(CGRectMake(0, 0, 40, 30));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 40, 60));
    view->setFrame(CGRect::null());
    EXPECT_EQ(view->bounds().size, CGSize());
}

TEST_F(CALayerTest, TheModelChangesAtOnceAndWhatIsShownFollows)
{
    view->setCenter({0, 0});
    moveTo(100);
    EXPECT_EQ(view->center().x, 100);
    EXPECT_EQ(shownAt(0).position.x, 0);
    EXPECT_EQ(shownAt(0.5).position.x, 50);
    EXPECT_LT(shownAt(0.1).position.x, 5);
    EXPECT_GT(shownAt(0.9).position.x, 95);
    EXPECT_EQ(shownAt(1).position.x, 100);
}

TEST_F(CALayerTest, WithoutMotionTheEndIsShownAtOnceAndEndsWhenItWould)
{
    host.screen().setReducesMotion(true);
    view->setCenter({0, 0});
    bool isOver = false;
    UIView::animate(
        1, 0.5,
        [&] {
            view->setCenter({100, 0});
        },
        [&] { isOver = true; });
    EXPECT_EQ(shownAt(0).position.x, 100);
    show(1.4);
    EXPECT_FALSE(isOver);
    show(1.6);
    EXPECT_TRUE(isOver);
}

TEST_F(CALayerTest, AnAnimationStartsFromWhereThingsAreShown)
{
    view->setCenter({0, 0});
    moveTo(100);
    show(0.5);
    moveTo(0, 0.25);
    EXPECT_EQ(shownAt(0.7).position.x, 50);
    EXPECT_EQ(shownAt(1.25).position.x, 25);
    EXPECT_EQ(shownAt(1.75).position.x, 0);
}

TEST_F(CALayerTest, AChangeWithoutAnimationShowsAtOnceAndTheSameValueChangesNothing)
{
    view->setCenter({0, 0});
    moveTo(100);
    view->setCenter({100, 0});
    EXPECT_EQ(shownAt(0.5).position.x, 50);
    UIView::animate(1, 0, [&] { UIView::performWithoutAnimation([&] { view->setCenter({30, 0}); }); });
    EXPECT_EQ(shownAt(0).position.x, 30);
}

TEST_F(CALayerTest, CompletionsRunInTheOrderOfTheirEnds)
{
    Lines ended;
    UIView::animate(
        0.4, 0, [] {}, [&] { ended.push_back("late"); });
    UIView::animate(
        0.1, 0.1, [] {},
        [&] {
            ended.push_back("early");
            UIView::animate(
                0, 0, [] {}, [&] { ended.push_back("added"); });
        });
    show(0.19);
    EXPECT_EQ(ended, Lines());
    show(0.5);
    EXPECT_EQ(ended, (Lines{"early", "late"}));
    show(0.6);
    EXPECT_EQ(ended.back(), "added");
}

} // namespace
} // namespace velmorath
