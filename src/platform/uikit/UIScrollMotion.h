#pragma once

#include "UIScrollRange.h"
#include <optional>

namespace velmorath {

/// How one coordinate of a content's offset moves by itself: it runs on and gets slower, and springs to
/// where it belongs. Times in seconds of Clock::now(), speeds in points a second.
class UIScrollMotion {
public:
    /// Towards a target or, without one, running on.
    UIScrollMotion(
        double start = 0, CGFloat offset = 0, CGFloat velocity = 0, std::optional<CGFloat> target = {})
        : m_start(start)
        , m_offset(offset)
        , m_velocity(velocity)
        , m_target(target)
    {
    }
    /// Not so fast that it would pass its target.
    static UIScrollMotion springing(double start, CGFloat offset, CGFloat velocity, CGFloat target);

    /// The offset at this moment. What runs past the range's end springs back from there.
    CGFloat step(double now, const UIScrollRange&);
    bool isOver() const { return m_isOver; }

private:
    struct State {
        CGFloat offset;
        CGFloat velocity;
    };

    State at(double now) const;
    bool hasArrived(const State&) const;
    CGFloat end(CGFloat offset);

    double m_start;
    CGFloat m_offset;
    CGFloat m_velocity;
    std::optional<CGFloat> m_target;
    bool m_isOver = false;
};

} // namespace velmorath
