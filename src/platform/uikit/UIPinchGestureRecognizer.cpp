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

void UIPinchGestureRecognizer::touchesMoved(const UITouches& moved)
{
    UIGestureRecognizer::touchesMoved(moved);
    if (state() == State::possible && numberOfTouches() == 2
        && std::fabs(distance() - m_initialDistance) >= requiredChange)
        begin();
}

CGFloat UIPinchGestureRecognizer::distance() const
{
    const CGVector apart = touches()[1]->location() - touches()[0]->location();
    return std::hypot(apart.dx, apart.dy);
}

} // namespace velmorath
