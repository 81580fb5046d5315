#pragma once

#include "HeadlessHost.h"

namespace velmorath {

/// A finger that is on the screen from the beginning. Every move takes time.
class Finger {
public:
    Finger(HeadlessHost& host, CGPoint location, std::int64_t identifier = 1)
        : m_host(host)
        , m_identifier(identifier)
        , m_location(location)
    {
        report(HostTouch::Phase::began);
    }

    /// In steps of a frame each.
    void moveTo(CGPoint target, int steps = 12)
    {
        const CGPoint start = m_location;
        for (int step = 1; step <= steps; ++step) {
            const CGFloat part = static_cast<CGFloat>(step) / steps;
            m_location = step == steps
                ? target
                : CGPoint{start.x + (target.x - start.x) * part, start.y + (target.y - start.y) * part};
            report(HostTouch::Phase::moved);
            m_host.advance(1.0 / 60);
        }
    }
    void moveBy(CGVector way, int steps = 12) { moveTo(m_location + way, steps); }

    /// Stays where it is until nothing is left of its speed.
    void hold()
    {
        m_host.advance(0.2);
        report(HostTouch::Phase::moved);
    }
    void lift() { report(HostTouch::Phase::ended); }
    void cancel() { report(HostTouch::Phase::cancelled); }

private:
    void report(HostTouch::Phase phase) { m_host.touch({{m_identifier, phase, m_location}}); }

    HeadlessHost& m_host;
    std::int64_t m_identifier;
    CGPoint m_location;
};

/// Two fingers, one above the other, that come down and leave one after the other and move together.
class TwoFingers {
public:
    TwoFingers(HeadlessHost& host, CGPoint upper, CGPoint lower)
        : m_host(host)
        , m_upper(upper)
        , m_lower(lower)
    {
        m_host.touch({{1, HostTouch::Phase::began, m_upper}});
        m_host.advance(0.03);
        m_host.touch({{2, HostTouch::Phase::began, m_lower}});
    }

    /// Points outwards for each; the first frames of it tell the pinch from two taps.
    void spread(CGFloat upper, CGFloat lower, int steps = 12)
    {
        for (int step = 0; step < steps; ++step) {
            m_upper.y -= upper / steps;
            m_lower.y += lower / steps;
            report(HostTouch::Phase::moved);
            m_host.advance(1.0 / 60);
        }
    }
    void lift()
    {
        m_host.touch({{1, HostTouch::Phase::ended, m_upper}});
        m_host.touch({{2, HostTouch::Phase::ended, m_lower}});
    }
    void cancel() { report(HostTouch::Phase::cancelled); }

private:
    void report(HostTouch::Phase phase) { m_host.touch({{1, phase, m_upper}, {2, phase, m_lower}}); }

    HeadlessHost& m_host;
    CGPoint m_upper;
    CGPoint m_lower;
};

} // namespace velmorath
