#pragma once

#include "UIScrollRange.h"
#include <optional>

namespace velmorath {

/// How one coordinate of a content's offset moves by itself: it runs on and gets slower, and springs to
/// where it belongs. Times in seconds of Clock::now(), speeds in points a second.
class UIScrollMotion {
public:
    UIScrollMotion() = default;

    static UIScrollMotion runningOn(double start, CGFloat offset, CGFloat velocity)
    {
        return {start, offset, velocity, std::nullopt};
    }
    /// Towards a target, which it never passes.
    static UIScrollMotion springing(double start, CGFloat offset, CGFloat velocity, CGFloat target);

    /// The offset at this moment. What runs past the range's end springs back from there.
    CGFloat step(double now, const UIScrollRange&);
    bool isOver() const { return m_isOver; }

private:
    struct State {
        CGFloat offset;
        CGFloat velocity;
    };

    UIScrollMotion(double start, CGFloat offset, CGFloat velocity, std::optional<CGFloat> target)
        : m_start(start)
        , m_offset(offset)
        , m_velocity(velocity)
        , m_target(target)
    {
    }

    State at(double now) const;
    bool hasArrived(const State&) const;
    CGFloat end(CGFloat offset);

    double m_start = 0;
    CGFloat m_offset = 0;
    CGFloat m_velocity = 0;
    /// Where it springs to; without one it runs on.
    std::optional<CGFloat> m_target;
    bool m_isOver = false;
};

} // namespace velmorath
