#pragma once

#include "UIView.h"
#include <any>
#include <functional>
#include <string>

namespace velmorath {

class UIViewController;
struct UIStoryboardScene;

/// A transition between two screens of a storyboard, about to be made.
struct UIStoryboardSegue {
    std::string identifier;
    UIViewController& destination;
};

enum class UIModalPresentationStyle {
    /// Slides up and covers everything; the screen below appears again when it is dismissed.
    fullScreen,
    /// Fades in over the screen below, which stays in sight.
    overFullScreen,
};

/// One screen: owns its view, made at its first use, and may present another screen over itself.
class UIViewController : public UIResponder, public std::enable_shared_from_this<UIViewController> {
public:
    UIViewController() = default;
    ~UIViewController() override;

    /// Made once, at the first call, with what the screen's scene puts into it; then viewDidLoad() runs.
    const std::shared_ptr<UIView>& view();

    virtual void viewDidLoad() { }
    /// The view is about to be seen: for the first time, or again after a full-screen dismissal.
    virtual void viewWillAppear(bool /*animated*/) { }
    /// The view has put its subviews in place: for the first time, or after its size changed.
    virtual void viewDidLayoutSubviews() { }

    void setModalPresentationStyle(UIModalPresentationStyle style) { m_style = style; }
    const std::shared_ptr<UIViewController>& presentedViewController() const { return m_presented; }
    /// Shows another controller over this one; the completion runs when it is there. Editing ends first.
    /// Does nothing while this one already presents another.
    void present(std::shared_ptr<UIViewController>, bool animated, std::function<void()> completion = {});
    /// Takes this controller away again, or the one that it presents; the completion runs when it is gone.
    void dismiss(bool animated, std::function<void()> completion = {});

    /// Makes the transition's destination, lets prepareForSegue() hand values over and presents it. It
    /// is fatal when this controller's storyboard has no such transition.
    void performSegue(const std::string& identifier, const std::any& sender);
    virtual void prepareForSegue(UIStoryboardSegue&, const std::any& /*sender*/) { }

    bool keyPressed(const HostKeyPress&) override;
    /// Escape was pressed. False when the screen has no other way out than what it shows.
    virtual bool escapePressed() { return false; }

    /// For the storyboard that this controller comes from.
    void setScene(const UIStoryboardScene* scene) { m_scene = scene; }
    /// For the window and for presentations.
    void appearIn(UIWindow&, bool animated);

private:
    std::shared_ptr<UIView> m_view;
    const UIStoryboardScene* m_scene = nullptr;
    UIModalPresentationStyle m_style = UIModalPresentationStyle::fullScreen;
    std::shared_ptr<UIViewController> m_presented;
    UIViewController* m_presenting = nullptr;
};

} // namespace velmorath
