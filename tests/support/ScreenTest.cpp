#include "ScreenTest.h"
#include "Bundle.h"
#include "CATimeline.h"
#include "Class.h"
#include "UIStoryboard.h"

namespace velmorath {

namespace {

std::function<void()> s_finishLaunching;

class PlainDelegate : public UIResponder, public UIApplicationDelegate {
public:
    bool applicationDidFinishLaunchingWithOptions(
        UIApplication&, const std::map<std::string, std::any>&) override
    {
        if (s_finishLaunching)
            s_finishLaunching();
        return true;
    }
    void applicationWillResignActive(UIApplication&) override { }
    void applicationDidEnterBackground(UIApplication&) override { }
    void applicationWillEnterForeground(UIApplication&) override { }
    void applicationDidBecomeActive(UIApplication&) override { }
    void applicationWillTerminate(UIApplication&) override { }
    void setWindow(std::shared_ptr<UIWindow>) override { }
};

} // namespace

ScreenTest::ScreenTest()
{
    testing::FLAGS_gtest_death_test_style = "fast";
    CATimeline::main().reset();
}

ScreenTest::~ScreenTest()
{
    host.quit();
    Bundle::main().reset();
    CATimeline::main().reset();
}

void ScreenTest::start(std::function<void()> finishLaunching)
{
    s_finishLaunching = std::move(finishLaunching);
    Class::enter<PlainDelegate>("PlainDelegate");
    UIStoryboard::enter("Main",
        {{"Plain", [] { return std::make_shared<UIViewController>(); }, [](UIViewController&, UIView&) {}}});
    UIApplicationMain(0, nullptr, std::nullopt, "PlainDelegate");
    host.advance(0.1);
}

void ScreenTest::tap(CGPoint point)
{
    Finger finger(host, point);
    host.advance(0.05);
    finger.lift();
}

std::vector<std::string> ScreenTest::takeLines()
{
    const std::vector<std::string> lines = host.console().lines();
    host.console().clear();
    return lines;
}

int ScreenTest::framesInASecond()
{
    const int before = host.framesPrepared();
    host.advance(1);
    return host.framesPrepared() - before;
}

} // namespace velmorath
