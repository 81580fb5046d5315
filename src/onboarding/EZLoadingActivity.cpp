#include "EZLoadingActivity.h"
#include "DispatchQueue.h"
#include "FatalError.h"
#include "LoadingActivity.h"
#include "Print.h"
#include "UIApplication.h"
#include <cmath>

namespace velmorath {

namespace {

constexpr double fadeDuration = 0.2;

struct State {
    std::shared_ptr<LoadingActivity> instance;
    bool isHiding = false;
    /// Made at its first use and kept.
    std::shared_ptr<UIView> dimmer;
};

State& state()
{
    static State s_state;
    return s_state;
}

bool refuseSecondBox()
{
    if (!state().instance)
        return false;
    print("EZLoadingActivity: You still have an active activity, please stop that before creating a new one");
    return true;
}

bool hasScreen()
{
    const std::shared_ptr<UIWindow> window = UIApplication::shared().keyWindow();
    return window && window->rootViewController();
}

void darkenBackground()
{
    std::shared_ptr<UIView>& dimmer = state().dimmer;
    if (!dimmer)
        dimmer = std::make_shared<UIView>(UIApplication::shared().keyWindow()->frame());
    dimmer->setBackgroundColor(UIColor::black().withAlpha(0));
    EZLoadingActivity::topMostView()->addSubview(dimmer);
    UIView::animate(
        fadeDuration, 0, [&] { dimmer->setBackgroundColor(dimmer->backgroundColor().withAlpha(0.5)); });
}

void brightenBackground()
{
    const std::shared_ptr<UIView> dimmer = state().dimmer;
    if (!dimmer)
        return;
    UIView::animate(
        fadeDuration, 0, [&] { dimmer->setBackgroundColor(dimmer->backgroundColor().withAlpha(0)); },
        [dimmer] { dimmer->removeFromSuperview(); });
}

void presentBox()
{
    if (EZLoadingActivity::Settings::DarkensBackground())
        darkenBackground();
    const std::shared_ptr<LoadingActivity> box = state().instance;
    if (!box)
        return;
    const std::shared_ptr<UIView> around = EZLoadingActivity::Settings::LoadOverApplicationWindow()
        ? UIApplication::shared().keyWindow()
        : EZLoadingActivity::topMostView();
    if (around)
        box->showIn(*around);
}

void release()
{
    state().instance.reset();
    state().isHiding = false;
}

void removeLater(const std::shared_ptr<LoadingActivity>& box, double seconds)
{
    DispatchQueue::main().asyncAfter(seconds, [box] { box->removeFromSuperview(); });
}

void endBox(const std::shared_ptr<LoadingActivity>& box, std::optional<bool> success, bool animated)
{
    state().isHiding = true;
    const double duration = box->showResult(success, animated);
    if (!animated) {
        removeLater(box, duration);
        release();
        return;
    }
    UIView::animate(
        duration, 0, [&] { box->icon->setAlpha(1); },
        [box, duration] {
            UIView::animate(
                fadeDuration, 0, [&] { box->setAlpha(0); }, [box, duration] { removeLater(box, duration); });
            release();
        });
}

} // namespace

std::shared_ptr<UIView> EZLoadingActivity::topMostView()
{
    if (!hasScreen())
        fatalError("There is no screen to show the activity on");
    return UIApplication::shared().keyWindow()->topViewController().view();
}

bool EZLoadingActivity::show(const std::string& text, bool disableUI)
{
    if (refuseSecondBox())
        return false;
    if (!hasScreen()) {
        print(
            "EZLoadingActivity Error: You don't have any views set. You may be calling them in viewDidLoad. Try viewDidAppear instead.");
        return false;
    }
    state().instance = std::make_shared<LoadingActivity>(text, disableUI);
    DispatchQueue::main().async(presentBox);
    return true;
}

bool EZLoadingActivity::showOnController(
    const std::string& text, bool disableUI, const std::shared_ptr<UIViewController>& controller)
{
    if (refuseSecondBox())
        return false;
    state().instance = std::make_shared<LoadingActivity>(text, disableUI);
    DispatchQueue::main().async([controller] {
        if (const std::shared_ptr<LoadingActivity> box = state().instance)
            box->showIn(*controller->view());
    });
    return true;
}

bool EZLoadingActivity::showWithDelay(const std::string& text, bool disableUI, double seconds)
{
    const bool isShown = show(text, disableUI);
    const double wholeNanoseconds = std::trunc(seconds * 1e9) / 1e9;
    DispatchQueue::main().asyncAfter(wholeNanoseconds, [] { hide(true, false); });
    return isShown;
}

bool EZLoadingActivity::hide(std::optional<bool> success, bool animated)
{
    const std::shared_ptr<LoadingActivity> box = state().instance;
    if (!box) {
        print("EZLoadingActivity: You don't have an activity instance");
        return false;
    }
    if (state().isHiding) {
        print("EZLoadingActivity: Hiding already in progress");
        return false;
    }
    endBox(box, success, animated);
    brightenBackground();
    return true;
}

} // namespace velmorath
