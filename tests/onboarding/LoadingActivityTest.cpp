#include "LoadingActivity.h"
#include "EZLoadingActivity.h"
#include "ScreenTest.h"
#include "UIControl.h"

namespace velmorath {

namespace {

using Lines = std::vector<std::string>;
using Settings = EZLoadingActivity::Settings;

const Lines stillActive{
    "EZLoadingActivity: You still have an active activity, please stop that before creating "
    "a new one"};
const Lines noInstance{"EZLoadingActivity: You don't have an activity instance"};

class LoadingActivityTest : public ScreenTest {
protected:
    LoadingActivityTest() { start(); }
    ~LoadingActivityTest() override
    {
        host.advance(5);
        EZLoadingActivity::hide({}, false);
        Settings::LoadOverApplicationWindow() = false;
        Settings::DarkensBackground() = false;
        Settings::ShadowEnabled() = true;
    }

    static std::shared_ptr<LoadingActivity> boxIn(const UIView& view)
    {
        for (const auto& subview : view.subviews()) {
            if (auto box = std::dynamic_pointer_cast<LoadingActivity>(subview))
                return box;
        }
        return nullptr;
    }
    std::shared_ptr<LoadingActivity> box() const { return boxIn(screen()); }
    bool shows(const std::string& text) { return host.draw().text(text) != nullptr; }
};

} // namespace

TEST_F(LoadingActivityTest, ComesOnTheLoopsNextTurnAndStaysInTheMiddle)
{
    EXPECT_TRUE(EZLoadingActivity::show("Loading", false));
    EXPECT_FALSE(box());
    host.advance(0.01);
    ASSERT_TRUE(box());
    host.resize({667, 375});
    EXPECT_EQ(box()->center(), (CGPoint{333.5, 187.5}));
}

TEST_F(LoadingActivityTest, OneAtATime)
{
    EXPECT_TRUE(EZLoadingActivity::show("One", false));
    EXPECT_FALSE(EZLoadingActivity::showOnController("Two", false, root().shared_from_this()));
    EXPECT_EQ(takeLines(), stillActive);
    host.advance(0.5);
    EXPECT_TRUE(EZLoadingActivity::hide(true, true));
    host.advance(0.4);
    EXPECT_FALSE(EZLoadingActivity::show("Three", false)) << "the mark is still fading in";
    host.advance(0.2);
    EXPECT_TRUE(box());
    EXPECT_TRUE(EZLoadingActivity::show("Four", false)) << "the old box need not be gone";
    host.advance(3);
    ASSERT_TRUE(box());
    EXPECT_EQ(box()->textLabel->text(), "Four");
    EXPECT_TRUE(EZLoadingActivity::hide({}, false));
}

TEST_F(LoadingActivityTest, AMarkStaysByItsMeaning)
{
    const auto secondsInSight = [this](std::optional<bool> success, bool animated) {
        EZLoadingActivity::show("Loading", false);
        host.advance(0.5);
        EZLoadingActivity::hide(success, animated);
        double seconds = 0;
        for (; box(); seconds += 0.05)
            host.advance(0.05);
        return seconds;
    };
    EXPECT_NEAR(secondsInSight({}, false), 0.05, 0.001) << "the next turn of the loop";
    EXPECT_NEAR(secondsInSight(true, false), 0.5, 0.051);
    EXPECT_NEAR(secondsInSight(false, false), 1.0, 0.051);
    EXPECT_NEAR(secondsInSight({}, true), 0.2, 0.11);
    EXPECT_NEAR(secondsInSight(true, true), 0.5 + 0.2 + 0.5, 0.11);
    EXPECT_NEAR(secondsInSight(false, true), 1.0 + 0.2 + 1.0, 0.11);
    EXPECT_EQ(framesInASecond(), 0);
}

TEST_F(LoadingActivityTest, EndsByItselfAfterADelay)
{
    EXPECT_TRUE(EZLoadingActivity::showWithDelay("Loading", false, 2));
    host.advance(1.9);
    EXPECT_TRUE(shows("Loading"));
    host.advance(0.2);
    EXPECT_TRUE(shows("Success"));
    host.advance(0.5);
    EXPECT_FALSE(box());

    EZLoadingActivity::showWithDelay("Third", false, 1);
    host.advance(0.5);
    EZLoadingActivity::hide({}, false);
    host.advance(1);
    EXPECT_EQ(takeLines(), noInstance);
}

TEST_F(LoadingActivityTest, TouchesAreIgnoredFromTheBeginningToTheEnd)
{
    int taps = 0;
    const auto button = add<UIControl>(CGRectMake(0, 0, 100, 100));
    button->addTarget([&](UIControl&) { ++taps; });
    EZLoadingActivity::show("Loading", true);
    tap({50, 50});
    host.advance(0.5);
    tap({50, 50});
    EXPECT_EQ(taps, 0);
    EZLoadingActivity::hide(true, true);
    tap({50, 50});
    EXPECT_EQ(taps, 1) << "from the moment that it starts to end";
    host.advance(3);

    EZLoadingActivity::show("Loading", false);
    tap({50, 50});
    EXPECT_EQ(taps, 2);
}

TEST_F(LoadingActivityTest, GoesToTheScreenOnTopOrWhereItIsTold)
{
    const auto first = std::make_shared<UIViewController>();
    const auto second = std::make_shared<UIViewController>();
    root().present(first, false);
    first->present(second, false);
    EZLoadingActivity::show("Loading", false);
    host.advance(0.3);
    EXPECT_TRUE(boxIn(*second->view()));
    EZLoadingActivity::hide({}, false);
    host.advance(0.1);

    EZLoadingActivity::showOnController("Loading", false, first);
    host.advance(0.3);
    EXPECT_TRUE(boxIn(*first->view()));
    EZLoadingActivity::hide({}, false);
    host.advance(0.1);

    Settings::LoadOverApplicationWindow() = true;
    EZLoadingActivity::show("Loading", false);
    host.advance(0.3);
    EXPECT_TRUE(boxIn(*UIApplication::shared().keyWindow()));
}

TEST_F(LoadingActivityTest, DarkensTheBackgroundBehindABox)
{
    Settings::DarkensBackground() = true;
    EZLoadingActivity::show("Loading", false);
    host.advance(0.3);
    ASSERT_EQ(screen().subviews().size(), 2u);
    const std::shared_ptr<UIView> dimmer = screen().subviews()[0];
    EZLoadingActivity::hide({}, false);
    host.advance(0.1);
    EXPECT_EQ(dimmer->superview(), &screen()) << "it fades";
    host.advance(0.3);
    EXPECT_FALSE(dimmer->superview());
    EZLoadingActivity::showOnController("Loading", false, root().shared_from_this());
    host.advance(0.3);
    EXPECT_FALSE(dimmer->superview()) << "never for a box in a given screen";
}

TEST_F(LoadingActivityTest, ABoxThatEndsBeforeItIsShownIsNeverSeen)
{
    EZLoadingActivity::show("Loading", false);
    EZLoadingActivity::hide(true, false);
    host.advance(0.3);
    EXPECT_FALSE(box());
    EXPECT_TRUE(host.draw().texts().empty());
}

TEST_F(LoadingActivityTest, WithoutAScreenItIsRefusedOrFatal)
{
    host.quit();
    takeLines();
    start([] { EXPECT_FALSE(EZLoadingActivity::show("Loading", false)); });
    EXPECT_EQ(takeLines(),
        Lines{
            "EZLoadingActivity Error: You don't have any views set. You may be calling them in viewDidLoad. "
            "Try viewDidAppear instead."});
    host.quit();
    EXPECT_DEATH(start([] { EZLoadingActivity::showOnController("Loading", false, nullptr); }), "no screen");
    start();
}

TEST_F(LoadingActivityTest, ItsSizeIsTheUprightScreensAtTheFirstUse)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto widths = [this](CGSize screenSize, CGFloat expected) {
        host.resize(screenSize);
        const CGFloat width = Settings::ActivityWidth();
        host.resize({100, 100});
        const bool isKept = Settings::ActivityWidth() == width && Settings::ActivityHeight() == width / 3;
        std::exit(isKept && std::fabs(width - expected) < 1e-9 ? 0 : 1);
    };
    EXPECT_EXIT(widths({320, 500}, 200), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(widths({667, 320}, 200), testing::ExitedWithCode(0), "") << "held sideways";
    EXPECT_EXIT(widths({700, 900}, 200), testing::ExitedWithCode(0), "") << "a tablet";
}

} // namespace velmorath
