#include "LoadingActivity.h"
#include "AppDelegate.h"
#include "Class.h"
#include "EZLoadingActivity.h"
#include "ScreenTest.h"
#include "UIControl.h"

namespace velmorath {

namespace {

using Settings = EZLoadingActivity::Settings;

class LoadingActivityTest : public ScreenTest {
protected:
    ~LoadingActivityTest() override
    {
        host.advance(5);
        EZLoadingActivity::hide({}, false);
        Settings::LoadOverApplicationWindow() = false;
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
};

} // namespace

TEST_F(LoadingActivityTest, OneAtATimeFromTheLoopsNextTurnOn)
{
    tellScreen();
    then("one is coming", 0, [&] {
        EXPECT_TRUE(EZLoadingActivity::show("One", false));
        EXPECT_FALSE(EZLoadingActivity::showOnController("Two", false, root().shared_from_this()));
        EXPECT_FALSE(box());
    });
    then("it is there", 0.5);
    host.resize({667, 375});
    EXPECT_EQ(box()->center(), (CGPoint{333.5, 187.5}));
    then("it ends", 0.4, [&] { EXPECT_TRUE(EZLoadingActivity::hide(true, true)); });
    then("its mark is still fading in", 0.2, [&] { EXPECT_FALSE(EZLoadingActivity::show("Three", false)); });
    then("the old box need not be gone", 3, [&] { EXPECT_TRUE(EZLoadingActivity::show("Four", false)); });
    then("it ends", [&] { EXPECT_TRUE(EZLoadingActivity::hide({}, false)); });
    then("one that ends before it is shown is never seen", [&] {
        EZLoadingActivity::show("Loading", false);
        EZLoadingActivity::hide(true, false);
    });
    then("one that ends by itself", 1.9, [&] { EZLoadingActivity::showWithDelay("Loading", false, 2); });
    then("its mark", 0.2);
    then("it is over", 0.5);
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
    const int frames = host.framesPrepared();
    host.advance(1);
    EXPECT_EQ(host.framesPrepared(), frames);
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
}

TEST_F(LoadingActivityTest, GoesToTheScreenOnTopOrWhereItIsTold)
{
    const auto first = std::make_shared<UIViewController>();
    const auto second = std::make_shared<UIViewController>();
    root().present(first, false);
    first->present(second, false);
    const auto expectIn = [this](const UIView& view) {
        host.advance(0.3);
        EXPECT_TRUE(boxIn(view));
        EZLoadingActivity::hide({}, false);
        host.advance(0.1);
    };
    EZLoadingActivity::show("Loading", false);
    expectIn(*second->view());
    EZLoadingActivity::showOnController("Loading", false, first);
    expectIn(*first->view());
    Settings::LoadOverApplicationWindow() = true;
    EZLoadingActivity::show("Loading", false);
    expectIn(*UIApplication::shared().keyWindow());
}

/// Does it before there is a window.
class EarlyCaller : public AppDelegate {
public:
    bool applicationDidFinishLaunchingWithOptions(
        UIApplication&, const std::map<std::string, std::any>&) override
    {
        s_call();
        return true;
    }
    inline static std::function<void()> s_call;
};

TEST_F(LoadingActivityTest, WithoutAScreenItIsRefusedOrFatal)
{
    const auto call = [this](std::function<void()> early) {
        host.quit();
        Class::enter<EarlyCaller>("EarlyCaller");
        EarlyCaller::s_call = std::move(early);
        UIApplicationMain(0, nullptr, std::nullopt, "EarlyCaller");
    };
    call([] { EXPECT_FALSE(EZLoadingActivity::show("Loading", false)); });
    EXPECT_EQ(
        countLines(
            "EZLoadingActivity Error: You don't have any views set. You may be calling them in viewDidLoad. Try viewDidAppear instead."),
        1u);
    EXPECT_DEATH(call([] { EZLoadingActivity::showOnController("Loading", false, nullptr); }), "no screen");
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
