#pragma once

#include "Clock.h"
#include <limits>

namespace velmorath {

/// Time that stands still until somebody moves it. The calendar starts on 2026-11-22, 12:00 UTC, and
/// moves along.
class HeadlessClock : public Clock {
public:
    double now() const override { return m_now; }
    double wallTime() const override { return m_wallTimeAtStart + m_now; }
    void wakeAt(double time) override { m_nextWakeUp = time; }

    void moveTo(double now) { m_now = now; }
    void setWallTime(double seconds) { m_wallTimeAtStart = seconds - m_now; }
    /// Infinity when no wake-up is wanted.
    double nextWakeUp() const { return m_nextWakeUp; }

private:
    double m_now = 0;
    double m_wallTimeAtStart = 1795348800;
    double m_nextWakeUp = std::numeric_limits<double>::infinity();
};

} // namespace velmorath
