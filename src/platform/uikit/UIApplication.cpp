#include "UIApplication.h"
#include "CATimeline.h"
#include "Class.h"
#include "DispatchQueue.h"
#include "FatalError.h"
#include "Host.h"
#include "HostKey.h"
#include "UIScreen.h"
#include "UIScrollView.h"
#include "UIStoryboard.h"
#include "UITextEditingView.h"
#include "UIViewController.h"

namespace velmorath {

namespace {

constexpr std::string_view storeScheme = "itms-apps:";

std::unique_ptr<UIApplication> s_shared;

/// Among the application's windows as long as a text is being edited. The keyboard itself, where there
/// is one on the screen, is the machine's; this window shows nothing.
class UIRemoteKeyboardWindow : public UIWindow { };

/// A key that is held down goes on moving, but does nothing twice that cannot be taken back.
bool mayRepeat(HostKey key)
{
    switch (key) {
    case HostKey::enter:
    case HostKey::space:
    case HostKey::escape:
    case HostKey::insert:
    case HostKey::edit:
    case HostKey::remove:
        return false;
    default:
        return true;
    }
}

} // namespace

UIApplication& UIApplication::shared()
{
    return *s_shared;
}

UIApplication::~UIApplication() = default;

int UIApplicationMain(int, char**, const std::optional<std::string>&, const std::string& delegateClassName)
{
    Class::enter<UIRemoteKeyboardWindow>("UIRemoteKeyboardWindow");
    s_shared.reset(new UIApplication);
    s_shared->launch(delegateClassName);
    return Host::current().run(*s_shared);
}

void UIApplication::launch(const std::string& delegateClassName)
{
    const Class* delegateClass = Class::named(delegateClassName);
    m_delegate =
        std::dynamic_pointer_cast<UIApplicationDelegate>(delegateClass ? delegateClass->make() : nullptr);
    if (!m_delegate)
        fatalError("There is no application delegate class named " + delegateClassName);
    m_delegate->applicationDidFinishLaunchingWithOptions(*this, {});

    const auto window = std::make_shared<UIWindow>(UIScreen::main().bounds());
    window->setBackgroundColor(UIColor::black());
    m_windows = {window};
    m_delegate->setWindow(window);
    window->setRootViewController(UIStoryboard::named("Main").instantiateInitialViewController());
    m_delegate->applicationDidBecomeActive(*this);
}

UIInterfaceOrientation UIApplication::statusBarOrientation() const
{
    const CGSize size = UIScreen::main().bounds().size;
    return size.height > size.width ? UIInterfaceOrientation::portrait : UIInterfaceOrientation::landscape;
}

void UIApplication::setApplicationIconBadgeNumber(long long number)
{
    m_badgeNumber = number;
    Host::current().effects().setBadge(number);
}

bool UIApplication::openURL(const URL& url)
{
    Effects& effects = Host::current().effects();
    const std::string& address = url.absoluteString();
    return effects.openAddress(address)
        || (address.starts_with(storeScheme)
            && effects.openAddress("https:" + address.substr(storeScheme.size())));
}

void UIApplication::beginIgnoringInteractionEvents()
{
    ++m_ignoringInteraction;
    m_touchDispatcher.cancelAll();
}

void UIApplication::textEditingBegan(UITextEditingView& view)
{
    m_editedView = &view;
    m_focusSystem.focusAround(view);
    m_windows.push_back(std::make_shared<UIRemoteKeyboardWindow>());
}

void UIApplication::textEditingEnded()
{
    m_editedView = nullptr;
    std::erase_if(m_windows,
        [](const auto& window) { return dynamic_cast<UIRemoteKeyboardWindow*>(window.get()) != nullptr; });
}

void UIApplication::touchesChanged(const std::vector<HostTouch>& touches, double time)
{
    m_focusSystem.hideRing();
    if (m_ignoringInteraction == 0 && !m_windows.empty())
        m_touchDispatcher.touchesChanged(*keyWindow(), touches, time);
}

bool UIApplication::beginInput()
{
    // Nothing moves under a finger, neither by the wheel nor by keys.
    if (m_ignoringInteraction > 0 || m_windows.empty() || numberOfTouches() > 0)
        return false;
    Host::current().screen().requestFrame();
    return true;
}

void UIApplication::scrolled(CGPoint location, CGVector by)
{
    if (!beginInput())
        return;
    const std::shared_ptr<UIView> hit = keyWindow()->hitTest(location);
    for (UIView* view = hit.get(); view; view = view->superview()) {
        auto* scrollView = dynamic_cast<UIScrollView*>(view);
        if (scrollView && scrollView->scrollByWheel(by))
            return;
    }
}

bool UIApplication::keyPressed(const HostKeyPress& press)
{
    if (m_editedView || !beginInput())
        return false;
    if (press.isRepeat && !mayRepeat(press.key))
        return true;
    return m_focusSystem.keyPressed(*keyWindow(), press);
}

AccessibilityElement UIApplication::accessibilityTree()
{
    if (m_windows.empty())
        return {};
    // While a text is edited, keys go to the machine's editor.
    const UIView* focused = m_editedView ? nullptr : m_focusSystem.focusedView().get();
    return m_accessibilityTree.tell(*keyWindow(), focused);
}

bool UIApplication::pressElement(std::int64_t identifier)
{
    return beginInput() && m_accessibilityTree.press(*keyWindow(), identifier);
}

bool UIApplication::performElementAction(std::int64_t identifier, std::size_t action)
{
    return beginInput() && m_accessibilityTree.perform(*keyWindow(), identifier, action);
}

bool UIApplication::focusElement(std::int64_t identifier)
{
    if (m_editedView || !beginInput())
        return false;
    const std::shared_ptr<UIView> view = m_accessibilityTree.view(*keyWindow(), identifier);
    if (!view || !view->canBecomeFocused())
        return false;
    m_focusSystem.focusByUser(*keyWindow(), view);
    return true;
}

void UIApplication::announce(const std::string& text)
{
    Host::current().effects().announce(text);
}

bool UIApplication::documentOpened(const Result<std::string>& file)
{
    if (m_ignoringInteraction > 0 || m_windows.empty())
        return false;
    const bool isUsed = m_delegate->applicationOpenDocument(*this, file);
    if (isUsed)
        Host::current().screen().requestFrame();
    return isUsed;
}

void UIApplication::documentsChanged()
{
    if (!m_windows.empty())
        m_delegate->applicationDocumentsChanged(*this);
}

void UIApplication::screenChanged()
{
    if (m_windows.empty())
        return;
    keyWindow()->setFrame(UIScreen::main().bounds());
    Host::current().screen().requestFrame();
}

CGRect UIApplication::prepareFrame()
{
    if (m_windows.empty())
        return CGRect::null();
    CATimeline& timeline = CATimeline::main();
    timeline.advance(Host::current().clock().now());
    keyWindow()->layoutIfNeeded();
    m_focusSystem.update(*keyWindow());
    if (m_editedView)
        m_editedView->placeEditor();
    return m_renderer.update(keyWindow()->layer(), timeline.frameTime(), UIScreen::main().bounds());
}

void UIApplication::draw(CGContext& context, const CGRect& area)
{
    if (!m_windows.empty())
        CARenderer::draw(keyWindow()->layer(), CATimeline::main().frameTime(), context, area);
}

void UIApplication::wake()
{
    DispatchQueue::main().runDue();
}

void UIApplication::stateChanged(HostState state)
{
    const HostState before = std::exchange(m_state, state);
    if (state == before || !m_delegate)
        return;
    if (before == HostState::background)
        m_delegate->applicationWillEnterForeground(*this);
    if (before == HostState::active)
        m_delegate->applicationWillResignActive(*this);
    if (state == HostState::background) {
        CATimeline::main().finish();
        m_delegate->applicationDidEnterBackground(*this);
    }
    if (state == HostState::active)
        m_delegate->applicationDidBecomeActive(*this);
}

void UIApplication::willTerminate()
{
    if (m_windows.empty())
        return;
    m_touchDispatcher.cancelAll();
    keyWindow()->endEditing();
    m_delegate->applicationWillTerminate(*this);
    CATimeline::main().finish();
    DispatchQueue::main().removeAll();
    CATimeline::main().reset();
    m_focusSystem = UIFocusSystem();
    m_accessibilityTree = UIAccessibilityTree();
    m_windows.clear();
    m_delegate.reset();
}

} // namespace velmorath
