#include "HeadlessImage.h"
#include "NFXIntroViewController.h"
#include "ScreenTest.h"
#include "TemporaryFolder.h"
#include <filesystem>
#include <fstream>

namespace velmorath {

namespace {

using Lines = std::vector<std::string>;

class TutorialTest : public ScreenTest, public delegatoTutorialChiuso {
protected:
    explicit TutorialTest(std::string folder = makeResources())
        : ScreenTest(folder)
        , resources(std::move(folder))
    {
        start();
    }
    ~TutorialTest() override { std::filesystem::remove_all(resources); }

    void chiusoTutorial() override
    {
        ++timesClosed;
        wasGoneWhenClosed = !root().presentedViewController();
    }

    static std::string makeResources()
    {
        std::string folder = (std::filesystem::temp_directory_path() / "velmorath-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        std::filesystem::create_directory(folder + "/pictures");
        for (const char* name : {"1info", "2info"})
            std::ofstream(folder + "/pictures/" + name + ".jpg") << "\xFF\xD8";
        return folder;
    }

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

    const std::string resources;
    int timesClosed = 0;
    bool wasGoneWhenClosed = false;
};

} // namespace

TEST_F(TutorialTest, LiesOutStripDotsAndButtonFromTheSizeOfTheScreen)
{
    present();
    EXPECT_EQ(takeLines(), (Lines{"initWithViews : (2 values)", "_pgcontrol : 37.0"}));
    const CGFloat stripHeight = 667.0 / 3 + 667.0 / 3;
    const CGRect strip = tutorial()._scrollview->frame();
    EXPECT_NEAR(strip.size.width, 250, 1e-9);
    EXPECT_NEAR(strip.size.height, stripHeight, 1e-9);
    EXPECT_NEAR(strip.midX(), 187.5, 1e-9);
    EXPECT_NEAR(strip.midY(), 333.5 - 50, 1e-9);
    EXPECT_EQ(tutorial()._scrollview->contentSize(), (CGSize{500, stripHeight}));
    EXPECT_EQ(tutorial()._pgcontrol->numberOfPages(), 2);

    const CGRect dots = tutorial()._pgcontrol->frame();
    EXPECT_NEAR(dots.midX(), 187.5, 1e-9);
    EXPECT_NEAR(dots.minY(), strip.maxY(), 1e-9);
    const CGRect button = tutorial()._button->frame();
    EXPECT_EQ(button.size, (CGSize{250, 50}));
    EXPECT_NEAR(button.midX(), 187.5, 1e-9);
    EXPECT_NEAR(button.minY(), dots.maxY(), 1e-9);
    EXPECT_EQ(host.draw().colorAt({5, 5}), UIColor::black());
}

TEST_F(TutorialTest, TheButtonTurnsThePageAndClosesOnTheLastOne)
{
    present();
    takeLines();
    EXPECT_EQ(title(), "next");
    pressButton();
    EXPECT_EQ(takeLines(), (Lines{"ButtonPushed", "numero : 1   page : 0", "if page_ != numero"}));
    EXPECT_EQ(tutorial()._scrollview->contentOffset(), (CGPoint{250, 0}));
    EXPECT_EQ(title(), "close");
    EXPECT_EQ(dot(), 1);
    EXPECT_EQ(timesClosed, 0);

    tap(tutorial()._button->center());
    EXPECT_EQ(
        takeLines(), (Lines{"ButtonPushed", "numero : 1   page : 1", "self.dismissViewControllerAnimated"}));
    EXPECT_EQ(timesClosed, 1) << "at once, without animation";
    EXPECT_TRUE(wasGoneWhenClosed);
    EXPECT_FALSE(screen().isHidden());
}

TEST_F(TutorialTest, TitleAndDotsFollowTheFinger)
{
    present(3);
    swipe(-150);
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
}

TEST_F(TutorialTest, ASinglePictureSaysNextAndCloses)
{
    present(1);
    EXPECT_EQ(title(), "next");
    pressButton();
    EXPECT_EQ(timesClosed, 1);
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
}

TEST_F(TutorialTest, ShowsPicturesAndTheBlackBehindTheHeldButton)
{
    present();
    const CGRect strip = tutorial()._scrollview->frame();
    const auto pictures = [this] {
        std::vector<DrawingCommand> found;
        const DrawingRecorder drawing = host.draw();
        for (const DrawingCommand& command : drawing.commands()) {
            if (command.kind == DrawingCommand::Kind::image && !command.visible.isEmpty())
                found.push_back(command);
        }
        return found;
    };
    ASSERT_EQ(pictures().size(), 1u);
    EXPECT_NEAR(pictures()[0].rect.midX(), strip.midX(), 1e-9);
    EXPECT_NEAR(pictures()[0].rect.size.width, 250, 1e-9) << "a square picture in an upright strip";

    Finger finger(host, tutorial()._button->center());
    ASSERT_EQ(pictures().size(), 2u);
    EXPECT_EQ(pictures()[1].rect, tutorial()._button->frame());
    EXPECT_EQ(pictures()[1].color, UIColor::black());
}

TEST_F(TutorialTest, AFingerThatRestsOnTheStripSurvivesTheEnd)
{
    present(1);
    Finger resting(host, {187, 200}, 5);
    tap(tutorial()._button->center());
    EXPECT_EQ(timesClosed, 1);
    resting.moveBy({-100, 0}, 4);
    resting.lift();
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

    host.screen().setMakesBitmaps(false);
    EXPECT_DEATH(made.initWithViews({}), "cannot be made");
    std::filesystem::remove(resources + "/pictures/2info.jpg");
    EXPECT_DEATH(presentTutorial(root(), *this), "2info.jpg is missing");
}

} // namespace velmorath
