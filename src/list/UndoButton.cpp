#include "UndoButton.h"
#include "Bundle.h"
#include "DispatchQueue.h"
#include "UITouch.h"
#include "UndoManager.h"
#include <utility>

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
    m_isPressed = true;
    DispatchQueue::main().asyncAfter(holdDuration, [weakSelf = weak_from_this(), wait = ++m_wait, this] {
        const auto self = weakSelf.lock();
        if (!self || !m_isPressed || m_wait != wait)
            return;
        m_isPressed = false;
        setHighlighted(false);
        m_hold();
    });
}

void UndoButton::touchesMoved(const UITouches& touches)
{
    if (!m_isPressed)
        return;
    UIButton::touchesMoved(touches);
    const CGVector moved = touches.front()->location() - touches.front()->start();
    if (std::hypot(moved.dx, moved.dy) >= allowedMovement)
        ++m_wait;
}

void UndoButton::touchesEnded(const UITouches& touches)
{
    if (std::exchange(m_isPressed, false))
        UIButton::touchesEnded(touches);
}

void UndoButton::touchesCancelled(const UITouches& touches)
{
    m_isPressed = false;
    UIButton::touchesCancelled(touches);
}

std::optional<UIAccessibilityInfo> UndoButton::accessibilityInfo()
{
    std::optional<UIAccessibilityInfo> info = UIButton::accessibilityInfo();
    // With nothing to take back, a press does what holding it does.
    if (!m_holdName.empty() && info->element.label != m_holdName)
        info->actions.push_back({m_holdName, m_hold});
    return info;
}

} // namespace velmorath
