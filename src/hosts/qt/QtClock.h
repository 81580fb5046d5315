#pragma once

#include "Clock.h"
#include <QTimer>
#include <functional>
#include <limits>

namespace velmorath {

/// The machine's own clocks; one timer of the Qt loop makes the wake-ups.
class QtClock final : public Clock {
public:
    /// The function is called at each moment that was asked for.
    explicit QtClock(std::function<void()> wake);

    double now() const override;
    double wallTime() const override;
    void wakeAt(double time) override;

private:
    void arm();
    void timerFired();

    QTimer m_timer;
    std::function<void()> m_wake;
    double m_wakeTime = std::numeric_limits<double>::infinity();
};

} // namespace velmorath
