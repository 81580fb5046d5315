#include "HeadlessImage.h"
#include "HostKey.h"
#include "NFXIntroViewController.h"
#include "ScreenTest.h"

namespace velmorath {

namespace {

class TutorialTest : public ScreenTest, public delegatoTutorialChiuso {
protected:
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
    }

    int timesClosed = 0;
};

} // namespace

TEST_F(TutorialTest, TurnsAPageByButtonFingerWheelAndKeys)
{
    present(3);
    const auto drag = [this](CGFloat way) {
        Finger finger(host, {187, 280});
        finger.moveBy({way < 0 ? -10.0 : 10.0, 0}, 1);
        finger.moveBy({way, 0});
        finger.hold();
        finger.lift();
    };
    const auto wheel = [this](CGFloat dx, CGFloat dy) { host.client().scrolled({187, 280}, {dx, dy}); };
    using Deed = std::function<void()>;
    for (const auto& [name, deed, page] :
        {std::tuple<std::string, Deed, int>{"button", [&] { pressButton(); }, 1},
            {"flick", [&] { swipe(-150); }, 2}, {"flick back", [&] { swipe(150); }, 1},
            {"drag of less than half", [&] { drag(-115); }, 1},
            {"half is the later page", [&] { drag(-125); }, 2}, {"beyond the end", [&] { drag(-150); }, 2},
            {"upwards", [&] { wheel(0, 40), wheel(0, 40); }, 1}, {"sideways", [&] { wheel(30, 0); }, 0},
            {"before the start", [&] { drag(150); }, 0}, {"key", [&] { host.press(HostKey::right); }, 1},
            {"key", [&] { host.press(HostKey::right); }, 2},
            {"no further", [&] { host.press(HostKey::right); }, 2},
            {"key", [&] { host.press(HostKey::left); }, 1}}) {
        deed();
        host.advance(2);
        EXPECT_EQ(dot(), page) << name;
        EXPECT_EQ(tutorial()._scrollview->contentOffset(), (CGPoint{page * 250.0, 0})) << name;
        EXPECT_EQ(title(), page == 2 ? "close" : "next") << name;
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
