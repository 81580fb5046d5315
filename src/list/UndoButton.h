#pragma once

#include "UIButton.h"

namespace velmorath {

class UndoManager;

/// Takes the last change back when it is tapped, and makes it again when it is held. In sight only while
/// there is something for it to do; pale while that is only to be done again, which a tap does then, too.
class UndoButton : public UIButton {
public:
    using UIButton::UIButton;

    /// What holding it does. A tap does what its targets do.
    void setHoldAction(std::function<void()> action) { m_hold = std::move(action); }
    void show(const UndoManager&);

    void touchesBegan(const UITouches&) override;
    void touchesMoved(const UITouches&) override;
    void touchesEnded(const UITouches&) override;
    void touchesCancelled(const UITouches&) override;
    bool canBecomeFocused() const override { return !isHidden(); }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

private:
    std::function<void()> m_hold;
    /// What holding it would do; empty when that is nothing.
    std::string m_holdName;
    /// A finger is down on it, and has not become a hold.
    bool m_isPressed = false;
    /// Which of the waits for a hold counts; none does any more that came before.
    unsigned m_wait = 0;
};

} // namespace velmorath
