#include "UIControl.h"
#include "HostKey.h"
#include "UITouch.h"

namespace velmorath {

namespace {

/// A finger may slip this far off a control and still press it.
constexpr CGFloat slack = 20;

bool isInside(const UIControl& control, const UITouches& touches)
{
    return control.bounds()
        .insetBy(-slack, -slack)
        .contains(control.convertFromWindow(touches.front()->location()));
}

} // namespace

std::optional<UIAccessibilityInfo> UIControl::accessibilityInfo()
{
    UIAccessibilityInfo info{{.role = AccessibilityRole::button,
        .label = accessibilityLabel(),
        .isSelected = m_selected,
        .isToggle = m_isToggle}};
    info.press = [this] {
        press();
        return true;
    };
    return info;
}

void UIControl::touchesMoved(const UITouches& touches)
{
    setHighlighted(isInside(*this, touches));
}

void UIControl::touchesEnded(const UITouches& touches)
{
    setHighlighted(false);
    if (isInside(*this, touches))
        press();
}

bool UIControl::keyPressed(const HostKeyPress& pressed)
{
    if (pressed.key != HostKey::enter && pressed.key != HostKey::space)
        return false;
    press();
    return true;
}

void UIControl::press()
{
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    const auto actions = m_actions;
    for (const auto& action : actions)
        action(*this);
}

} // namespace velmorath
