#include "UITapGestureRecognizer.h"
#include "UIView.h"

namespace velmorath {

namespace {

constexpr CGFloat allowedMovement = 10;

}

void UITapGestureRecognizer::touchesBegan(const UITouches& began)
{
    UIGestureRecognizer::touchesBegan(began);
    if (numberOfTouches() > 1)
        fail();
}

void UITapGestureRecognizer::touchesMoved(const UITouches&)
{
    if (state() != State::possible)
        return;
    const CGVector moved = touches().front()->location() - touches().front()->start();
    if (std::hypot(moved.dx, moved.dy) >= allowedMovement)
        fail();
}

void UITapGestureRecognizer::touchesEnded(const UITouches& ended)
{
    // What was tapped may have gone with what the tap ended, and taken the touch along.
    const UITouch& touch = *ended.front();
    if (state() == State::possible && isTracking(touch) && touch.view()->canBeUsed())
        begin(State::ended);
    UIGestureRecognizer::touchesEnded(ended);
}

} // namespace velmorath
