#pragma once

#include "UIView.h"

namespace velmorath {

class UIViewController;

/// The view that all others of a screen are in.
class UIWindow : public UIView {
public:
    using UIView::UIView;

    UIWindow* window() override { return this; }

    const std::shared_ptr<UIViewController>& rootViewController() const { return m_rootViewController; }
    /// Puts the controller's view on the screen, filling the window.
    void setRootViewController(std::shared_ptr<UIViewController>);
    /// The screen that lies over all others. There must be one.
    UIViewController& topViewController() const;

private:
    std::shared_ptr<UIViewController> m_rootViewController;
};

} // namespace velmorath
