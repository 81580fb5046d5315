#include "UIPanGestureRecognizer.h"
#include "UIView.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr CGFloat requiredMovement = 10;
constexpr double velocityWindow = 0.1;

} // namespace

void UIPanGestureRecognizer::touchesBegan(const UITouches& began)
{
    UIGestureRecognizer::touchesBegan(began);
    if (numberOfTouches() > 1 && state() == State::possible)
        fail();
    recordSample();
}

void UIPanGestureRecognizer::touchesMoved(const UITouches& moved)
{
    recordSample();
    if (state() != State::possible) {
        UIGestureRecognizer::touchesMoved(moved);
        return;
    }
    const CGVector way = touches().front()->location() - touches().front()->start();
    if (std::hypot(way.dx, way.dy) >= requiredMovement && begin())
        UIGestureRecognizer::touchesMoved(moved);
}

void UIPanGestureRecognizer::touchesEnded(const UITouches& ended)
{
    recordSample();
    UIGestureRecognizer::touchesEnded(ended);
}

CGVector UIPanGestureRecognizer::translationIn(const UIView& view) const
{
    if (numberOfTouches() == 0)
        return {};
    return view.convertFromWindow(touches().front()->location())
        - view.convertFromWindow(touches().front()->start());
}

void UIPanGestureRecognizer::recordSample()
{
    const UITouch& touch = *touches().front();
    m_samples.push_back({touch.location(), touch.time()});
    std::erase_if(
        m_samples, [&](const Sample& sample) { return touch.time() - sample.time > velocityWindow; });
}

CGVector UIPanGestureRecognizer::velocity() const
{
    if (m_samples.size() < 2)
        return {};
    const double seconds = m_samples.back().time - m_samples.front().time;
    if (seconds < 0.001)
        return {};
    const CGVector moved = m_samples.back().location - m_samples.front().location;
    return {moved.dx / seconds, moved.dy / seconds};
}

} // namespace velmorath
