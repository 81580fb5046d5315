#pragma once

#include "UIResponder.h"
#include "UITouch.h"
#include <functional>
#include <utility>
#include <vector>

namespace velmorath {

class UIGestureRecognizer;

class UIGestureRecognizerDelegate {
public:
    virtual ~UIGestureRecognizerDelegate() = default;

    /// Asked when the recognizer has seen its gesture and is about to begin; false makes it fail.
    virtual bool gestureRecognizerShouldBegin(UIGestureRecognizer&) { return true; }
};

/// Watches the touches on a view for one gesture. When it begins, the touches are its own: all other
/// recognizers on them fail, and the views under them are told that their touches were cancelled.
class UIGestureRecognizer {
public:
    enum class State { possible, began, changed, ended, cancelled, failed };

    UIGestureRecognizer() = default;
    virtual ~UIGestureRecognizer() = default;
    UIGestureRecognizer(const UIGestureRecognizer&) = delete;
    UIGestureRecognizer& operator=(const UIGestureRecognizer&) = delete;

    /// Called at every change of state, and at every move once the gesture began.
    void addTarget(std::function<void(UIGestureRecognizer&)> action)
    {
        m_actions.push_back(std::move(action));
    }
    void setDelegate(UIGestureRecognizerDelegate* delegate) { m_delegate = delegate; }

    State state() const { return m_state; }
    /// The view it is attached to.
    UIView* view() const { return m_view; }
    const UITouches& touches() const { return m_touches; }
    std::size_t numberOfTouches() const { return m_touches.size(); }
    CGPoint locationOfTouch(std::size_t index, const UIView&) const;

    /// For the dispatcher and the view alone from here on.
    /// Without a view, when it was destroyed, nobody is left to be asked or told.
    void setView(UIView*);
    virtual void touchesBegan(const UITouches&);
    virtual void touchesMoved(const UITouches&);
    virtual void touchesEnded(const UITouches&);
    virtual void touchesCancelled(const UITouches&);
    /// Somebody else took the touches.
    void fail();
    bool isTracking(const UITouch&) const;
    bool isActive() const { return m_state == State::began || m_state == State::changed; }
    /// Whether it began since this was asked last.
    bool takeBeginning() { return std::exchange(m_hasBegun, false); }
    /// It wants the touches for itself although it has not begun.
    virtual bool claimsTouches() const { return false; }

protected:
    /// From possible to began (or ended, for a gesture without length) after asking the delegate.
    /// False, and failed, when the delegate refuses.
    bool begin(State = State::began);
    /// Into this state, of which whoever listens is told.
    void enter(State);

    virtual bool shouldBegin() { return !m_delegate || m_delegate->gestureRecognizerShouldBegin(*this); }
    /// All touches are gone: forget everything.
    virtual void reset() { }

private:
    void forget(const UITouches&);

    State m_state = State::possible;
    bool m_hasBegun = false;
    UIView* m_view = nullptr;
    UIGestureRecognizerDelegate* m_delegate = nullptr;
    std::vector<std::function<void(UIGestureRecognizer&)>> m_actions;
    UITouches m_touches;
};

} // namespace velmorath
