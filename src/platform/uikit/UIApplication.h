#pragma once

#include "CARenderer.h"
#include "HostClient.h"
#include "UIAccessibilityTree.h"
#include "UIFocusSystem.h"
#include "UITouchDispatcher.h"
#include "UIWindow.h"
#include "URL.h"
#include <any>
#include <map>
#include <optional>
#include <string>

namespace velmorath {

class UIApplication;
class UITextEditingView;

/// Landscape: at least as wide as high.
enum class UIInterfaceOrientation { portrait, landscape };

class UIApplicationDelegate {
public:
    virtual ~UIApplicationDelegate() = default;

    virtual bool applicationDidFinishLaunchingWithOptions(
        UIApplication&, const std::map<std::string, std::any>& launchOptions) = 0;
    virtual void applicationWillResignActive(UIApplication&) = 0;
    virtual void applicationDidEnterBackground(UIApplication&) = 0;
    virtual void applicationWillEnterForeground(UIApplication&) = 0;
    virtual void applicationDidBecomeActive(UIApplication&) = 0;
    virtual void applicationWillTerminate(UIApplication&) = 0;
    /// A file was handed to the program, or why it cannot be read. False when it has no use for it now.
    virtual bool applicationOpenDocument(UIApplication&, const Result<std::string>& /*file*/)
    {
        return false;
    }
    /// Another program may have changed the user's documents.
    virtual void applicationDocumentsChanged(UIApplication&) { }
    /// The window of the main storyboard, when the platform has made it.
    virtual void setWindow(std::shared_ptr<UIWindow>) = 0;
};

/// The running program: what the host tells goes in here, to the window, its views and controllers.
class UIApplication : public HostClient {
public:
    ~UIApplication() override;

    static UIApplication& shared();

    /// From back to front.
    const std::vector<std::shared_ptr<UIWindow>>& windows() const { return m_windows; }
    /// Nothing while the program is being launched.
    std::shared_ptr<UIWindow> keyWindow() const { return m_windows.empty() ? nullptr : m_windows.front(); }
    UIInterfaceOrientation statusBarOrientation() const;

    long long applicationIconBadgeNumber() const { return m_badgeNumber; }
    /// Below zero counts on, but shows like zero: not at all.
    void setApplicationIconBadgeNumber(long long);

    /// Hands an address to whatever the machine opens it with. A store link that nothing takes is opened as
    /// the same address on the web. False when that was not taken either.
    bool openURL(const URL&);

    /// Touches are not listened to until as many ends as begins were called.
    void beginIgnoringInteractionEvents();
    void endIgnoringInteractionEvents() { --m_ignoringInteraction; }

    /// Takes the touches on this view, and on all that is in it, away from everybody there.
    void cancelTouches(const UIView& view) { m_touchDispatcher.cancelTouches(view); }

    /// Says what happened, in the user's language, to those who do not see it.
    void announce(const std::string& text);

    /// How many fingers are down.
    std::size_t numberOfTouches() const { return m_touchDispatcher.numberOfFingers(); }

    UIFocusSystem& focusSystem() { return m_focusSystem; }

    /// For text fields and text views, when the machine's editor is theirs and when it no longer is.
    void textEditingBegan(UITextEditingView&);
    void textEditingEnded();

    void touchesChanged(const std::vector<HostTouch>&, double time) override;
    void scrolled(CGPoint location, CGVector by) override;
    bool keyPressed(const HostKeyPress&) override;
    bool documentOpened(const Result<std::string>& file) override;
    void documentsChanged() override;
    void screenChanged() override;
    CGRect prepareFrame() override;
    void draw(CGContext&, const CGRect& area) override;
    AccessibilityElement accessibilityTree() override;
    bool pressElement(std::int64_t identifier) override;
    bool performElementAction(std::int64_t identifier, std::size_t action) override;
    bool focusElement(std::int64_t identifier) override;
    void wake() override;
    void stateChanged(HostState) override;
    void willTerminate() override;

private:
    friend int UIApplicationMain(int, char**, const std::optional<std::string>&, const std::string&);

    UIApplication() = default;
    void launch(const std::string& delegateClassName);
    /// Before what the user does other than by fingers: asks for the frame that follows. False when the
    /// program does not listen to it just now.
    bool beginInput();

    std::shared_ptr<UIApplicationDelegate> m_delegate;
    std::vector<std::shared_ptr<UIWindow>> m_windows;
    UITouchDispatcher m_touchDispatcher;
    UIFocusSystem m_focusSystem;
    UIAccessibilityTree m_accessibilityTree;
    CARenderer m_renderer;
    UITextEditingView* m_editedView = nullptr;
    HostState m_state = HostState::active;
    long long m_badgeNumber = 0;
    int m_ignoringInteraction = 0;
};

/// Makes the application and its delegate, an object of the class entered under that name, launches it
/// with the storyboard "Main" and runs the host's loop. No principal class name means the platform's own
/// application class; there is no other. Returns the process's exit code.
int UIApplicationMain(int argc, char** argv, const std::optional<std::string>& principalClassName,
    const std::string& delegateClassName);

} // namespace velmorath
