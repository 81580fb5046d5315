#include "UndoButton.h"
#include "Bundle.h"
#include "DispatchQueue.h"
#include "UITouch.h"
#include "UndoManager.h"

namespace velmorath {

namespace {

constexpr double holdDuration = 0.5;
constexpr CGFloat allowedMovement = 10;
constexpr CGFloat onlyRedoAlpha = 0.4;

} // namespace

void UndoButton::show(const UndoManager& manager)
{
    setHidden(!manager.canUndo() && !manager.canRedo());
    setAlpha(manager.canUndo() ? 1 : onlyRedoAlpha);
    const auto words = [](std::string_view key, const std::string& name) {
        return Bundle::main().localizedString(key, {name});
    };
    m_holdName = manager.canRedo() ? words("Redo: %1", manager.redoActionName()) : "";
    setAccessibilityLabel(manager.canUndo() ? words("Undo: %1", manager.undoActionName()) : m_holdName);
}

void UndoButton::touchesBegan(const UITouches& touches)
{
    UIButton::touchesBegan(touches);
    m_touch |= 1;
    DispatchQueue::main().asyncAfter(holdDuration, [weakSelf = weak_from_this(), touch = m_touch, this] {
        const auto self = weakSelf.lock();
        if (!self || m_touch != touch)
            return;
        ++m_touch;
        setHighlighted(false);
        m_hold();
    });
}

void UndoButton::touchesMoved(const UITouches& touches)
{
    if (m_touch % 2 == 0)
        return;
    UIButton::touchesMoved(touches);
    const CGVector moved = touches.front()->location() - touches.front()->start();
    if (std::hypot(moved.dx, moved.dy) >= allowedMovement)
        m_touch += 2;
}

void UndoButton::touchesEnded(const UITouches& touches)
{
    if (m_touch % 2 == 0)
        return;
    ++m_touch;
    UIButton::touchesEnded(touches);
}

void UndoButton::touchesCancelled(const UITouches& touches)
{
    m_touch += m_touch % 2;
    UIButton::touchesCancelled(touches);
}

std::optional<UIAccessibilityInfo> UndoButton::accessibilityInfo()
{
    std::optional<UIAccessibilityInfo> info = UIButton::accessibilityInfo();
    if (m_holdName.empty())
        return info;
    // With nothing to take back, the button is what holding it does: that is its name then.
    if (info->label == m_holdName) {
        info->press = [this] {
            m_hold();
            return true;
        };
    } else {
        info->actions.push_back({m_holdName, m_hold});
    }
    return info;
}

} // namespace velmorath
