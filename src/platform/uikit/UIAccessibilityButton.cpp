#include "UIAccessibilityButton.h"

namespace velmorath {

UIAccessibilityButton::UIAccessibilityButton(
    const CGRect& frame, std::string label, std::function<bool()> isPossible, std::function<bool()> action)
    : UIView(frame)
    , m_isPossible(std::move(isPossible))
    , m_action(std::move(action))
{
    setUserInteractionEnabled(false);
    setAccessibilityLabel(std::move(label));
}

std::optional<UIAccessibilityInfo> UIAccessibilityButton::accessibilityInfo()
{
    UIAccessibilityInfo info{.role = AccessibilityRole::button, .label = accessibilityLabel()};
    if (m_isPossible())
        info.press = m_action;
    return info;
}

} // namespace velmorath
