#pragma once

#include "UIView.h"

namespace velmorath {

/// A view that is pressed. It acts when the finger leaves it inside its bounds, and shows that it is
/// held down until then.
class UIControl : public UIView {
public:
    using UIView::UIView;

    /// Called at touch up inside.
    void addTarget(std::function<void(UIControl&)> action) { m_actions.push_back(std::move(action)); }

    bool canBecomeFocused() const override { return true; }
    /// Enter and the space bar press it.
    bool keyPressed(const HostKeyPress&) override;

    bool isHighlighted() const { return m_highlighted; }
    /// Each press turns a toggle on or off, as whoever listens to it then sets. Not shown; told to those who
    /// do not see the control.
    void setToggle(bool isToggle) { m_isToggle = isToggle; }
    void setSelected(bool selected) { m_selected = selected; }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    void touchesBegan(const UITouches&) override { setHighlighted(true); }
    void touchesMoved(const UITouches&) override;
    void touchesEnded(const UITouches&) override;
    void touchesCancelled(const UITouches&) override { setHighlighted(false); }

protected:
    void setHighlighted(bool highlighted) { setDrawn(m_highlighted, highlighted); }

private:
    void press();

    std::vector<std::function<void(UIControl&)>> m_actions;
    bool m_highlighted = false;
    bool m_selected = false;
    bool m_isToggle = false;
};

} // namespace velmorath
