#include "UIGestureRecognizer.h"
#include "UIView.h"
#include <algorithm>

namespace velmorath {

CGPoint UIGestureRecognizer::locationOfTouch(std::size_t index, const UIView& view) const
{
    return view.convertFromWindow(m_touches.at(index)->location());
}

void UIGestureRecognizer::setView(UIView* view)
{
    m_view = view;
    if (!view) {
        m_actions.clear();
        m_delegate = nullptr;
    }
}

bool UIGestureRecognizer::isTracking(const UITouch& touch) const
{
    return std::any_of(
        m_touches.begin(), m_touches.end(), [&](const auto& own) { return own.get() == &touch; });
}

void UIGestureRecognizer::touchesBegan(const UITouches& began)
{
    m_touches.insert(m_touches.end(), began.begin(), began.end());
}

void UIGestureRecognizer::touchesMoved(const UITouches&)
{
    if (isActive())
        enter(State::changed);
}

void UIGestureRecognizer::touchesEnded(const UITouches& ended)
{
    if (isActive())
        enter(State::ended);
    forget(ended);
}

void UIGestureRecognizer::touchesCancelled(const UITouches& cancelled)
{
    if (isActive())
        enter(State::cancelled);
    forget(cancelled);
}

void UIGestureRecognizer::fail()
{
    if (isActive())
        enter(State::cancelled);
    else
        m_state = State::failed;
}

bool UIGestureRecognizer::begin(State state)
{
    const bool isWanted = shouldBegin();
    // The question may have set off something that took the touches away.
    if (m_touches.empty())
        return false;
    if (!isWanted) {
        m_state = State::failed;
        return false;
    }
    m_hasBegun = true;
    enter(state);
    return true;
}

void UIGestureRecognizer::enter(State state)
{
    m_state = state;
    // A copy: an action may take its view, and this recognizer's targets with it, apart.
    const auto actions = m_actions;
    for (const auto& action : actions)
        action(*this);
    if (m_view && (state == State::ended || state == State::cancelled))
        m_view->gestureEnded();
}

void UIGestureRecognizer::forget(const UITouches& gone)
{
    std::erase_if(m_touches,
        [&](const auto& touch) { return std::find(gone.begin(), gone.end(), touch) != gone.end(); });
    if (m_touches.empty()) {
        m_state = State::possible;
        reset();
    }
}

} // namespace velmorath
