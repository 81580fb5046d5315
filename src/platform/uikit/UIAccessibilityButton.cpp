#include "UIAccessibilityButton.h"

namespace velmorath {

UIAccessibilityButton::UIAccessibilityButton(
    const CGRect& frame, std::string label, std::function<void()> action)
    : UIView(frame)
    , m_action(std::move(action))
{
    setUserInteractionEnabled(false);
    setAccessibilityLabel(std::move(label));
}

std::optional<UIAccessibilityInfo> UIAccessibilityButton::accessibilityInfo()
{
    return UIAccessibilityInfo{
        .role = AccessibilityRole::button, .label = accessibilityLabel(), .press = m_action};
}

} // namespace velmorath
