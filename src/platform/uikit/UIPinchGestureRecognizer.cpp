#include "UIPinchGestureRecognizer.h"

namespace velmorath {

namespace {

constexpr CGFloat requiredChange = 8;

}

void UIPinchGestureRecognizer::touchesBegan(const UITouches& began)
{
    UIGestureRecognizer::touchesBegan(began);
    if (numberOfTouches() == 2)
        m_initialDistance = distance();
    else if (numberOfTouches() > 2)
        fail();
}

void UIPinchGestureRecognizer::touchesMoved(const UITouches&)
{
    if (isActive()) {
        change();
        return;
    }
    if (state() == State::possible && numberOfTouches() == 2
        && std::fabs(distance() - m_initialDistance) >= requiredChange)
        begin();
}

void UIPinchGestureRecognizer::touchesEnded(const UITouches& ended)
{
    if (isActive())
        end();
    UIGestureRecognizer::touchesEnded(ended);
}

CGFloat UIPinchGestureRecognizer::distance() const
{
    const CGVector apart = touches()[1]->location() - touches()[0]->location();
    return std::hypot(apart.dx, apart.dy);
}

} // namespace velmorath
