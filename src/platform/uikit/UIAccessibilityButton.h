#pragma once

#include "UIView.h"

namespace velmorath {

/// A button for those who do not see the screen, for what others do by a gesture. Nothing is drawn and
/// touches go through it, but it has a place, where a finger that explores the screen comes upon it.
class UIAccessibilityButton : public UIView {
public:
    /// It can be pressed while `isPossible` says so. The action returns false when it refused.
    UIAccessibilityButton(const CGRect& frame, std::string label, std::function<bool()> isPossible,
        std::function<bool()> action)
        : UIView(frame)
        , m_isPossible(std::move(isPossible))
        , m_action(std::move(action))
    {
        setUserInteractionEnabled(false);
        setAccessibilityLabel(std::move(label));
    }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override
    {
        return UIAccessibilityInfo{{.role = AccessibilityRole::button, .label = accessibilityLabel()},
            m_isPossible() ? m_action : nullptr};
    }

private:
    std::function<bool()> m_isPossible;
    std::function<bool()> m_action;
};

} // namespace velmorath
