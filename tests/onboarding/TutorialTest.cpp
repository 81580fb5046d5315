#include "HeadlessImage.h"
#include "HostKey.h"
#include "NFXIntroViewController.h"
#include "ScreenTest.h"

namespace velmorath {

namespace {

using Lines = std::vector<std::string>;

class TutorialTest : public ScreenTest, public delegatoTutorialChiuso {
protected:
    TutorialTest() { start(); }

    void chiusoTutorial() override { ++timesClosed; }

    static std::vector<std::any> pictures(std::size_t count)
    {
        return std::vector<std::any>(
            count, std::make_shared<UIImage>(std::make_shared<HeadlessImage>(CGSize{375, 667}), 1));
    }

    void present()
    {
        presentTutorial(root(), *this);
        host.advance(1);
    }
    void present(std::size_t count)
    {
        const auto made = std::make_shared<NFXIntroViewController>();
        made->initWithViews(pictures(count));
        made->delegate2 = this;
        root().present(made, false);
        host.advance(0.1);
    }

    NFXIntroViewController& tutorial() const
    {
        return static_cast<NFXIntroViewController&>(*root().presentedViewController());
    }
    const std::string& title() const { return tutorial()._button->title(); }
    std::int64_t dot() const { return tutorial()._pgcontrol->currentPage(); }
    void pressButton()
    {
        tap(tutorial()._button->center());
        host.advance(1.5);
    }
    void swipe(CGFloat way)
    {
        Finger finger(host, {187 - way / 2, 280});
        finger.moveBy({way, 0}, 8);
        finger.lift();
        host.advance(1.5);
    }

    int timesClosed = 0;
};

} // namespace

TEST_F(TutorialTest, TitleAndDotsFollowTheFinger)
{
    present(3);
    pressButton();
    EXPECT_EQ(title(), "next");
    EXPECT_EQ(dot(), 1);
    swipe(-150);
    EXPECT_EQ(title(), "close");
    EXPECT_EQ(dot(), 2);
    swipe(150);
    EXPECT_EQ(title(), "next");
    EXPECT_EQ(dot(), 1);

    tutorial()._scrollview->setContentOffset({374.9, 0});
    EXPECT_EQ(dot(), 1);
    tutorial()._scrollview->setContentOffset({375, 0});
    EXPECT_EQ(dot(), 2) << "half-way is the later page";
    EXPECT_EQ(title(), "close");

    for (const auto& [key, page] :
        {std::pair{HostKey::right, 2}, {HostKey::left, 1}, {HostKey::left, 0}, {HostKey::right, 1}}) {
        host.press(key);
        host.advance(1.5);
        EXPECT_EQ(dot(), page);
    }
    host.screen().setReducesMotion(true);
    host.press(HostKey::left);
    EXPECT_EQ(tutorial()._scrollview->contentOffset().x, 0) << "without any way";
}

TEST_F(TutorialTest, WithoutPicturesOrDelegateNothingBreaks)
{
    present(0);
    takeLines();
    pressButton();
    EXPECT_EQ(takeLines()[1], "numero : -1   page : 0");
    EXPECT_TRUE(root().presentedViewController());
    root().dismiss(false);

    present(1);
    tutorial().delegate2 = nullptr;
    pressButton();
    EXPECT_FALSE(root().presentedViewController());
    EXPECT_EQ(timesClosed, 0);
}

TEST_F(TutorialTest, KeepsItsPageWhenTheWindowChangesItsSize)
{
    present();
    pressButton();
    EXPECT_EQ(host.effects().announced().back().substr(0, 20), "Pull two notes apart");
    takeLines();
    host.resize({667, 375});
    host.advance(0.1);
    EXPECT_NEAR(tutorial()._scrollview->frame().size.width, 667.0 * 2 / 3, 1e-9);
    EXPECT_EQ(tutorial()._scrollview->contentOffset().x, tutorial()._scrollview->frame().size.width);
    EXPECT_EQ(tutorial()._scrollview->subviews()[1]->bounds().size, tutorial()._scrollview->bounds().size);
    EXPECT_EQ(title(), "close");
    EXPECT_LT(tutorial()._button->frame().maxY(), 375) << "the way out stays in reach";
    EXPECT_TRUE(takeLines().empty());
    pressButton();
    EXPECT_EQ(timesClosed, 1);
    EXPECT_EQ(host.effects().announced().size(), 1u) << "a page is told when it is turned, not when it moves";
}

TEST_F(TutorialTest, WhatCannotBeIsFatal)
{
    NFXIntroViewController made;
    EXPECT_DEATH(made.initWithViews({std::string("no picture")}), "not a picture");
    EXPECT_DEATH(made.initWithViews({std::shared_ptr<UIImage>()}), "not a picture");

    present(2);
    const auto strip = tutorial()._scrollview;
    strip->setFrame({});
    EXPECT_DEATH(tutorial().ButtonPushed(), "no number") << "nothing divided by nothing";
    strip->setFrame(CGRectMake(0, 0, 1e-3, 1));
    EXPECT_DEATH(strip->setContentOffset({1e17, 0}), "no number") << "more pages than there are numbers";

    host.files().setHidden("2info.jpg");
    EXPECT_DEATH(presentTutorial(root(), *this), "2info.jpg is missing");
    host.screen().setDecodesImages(false);
    EXPECT_DEATH(made.initWithViews({}), "cannot be made");
}

} // namespace velmorath
