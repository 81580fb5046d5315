#include "QtClock.h"
#include <algorithm>
#include <chrono>
#include <cmath>

namespace velmorath {

namespace {

template <typename ClockType> double seconds()
{
    return std::chrono::duration<double>(ClockType::now().time_since_epoch()).count();
}

} // namespace

QtClock::QtClock(std::function<void()> wake)
    : m_wake(std::move(wake))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { timerFired(); });
}

double QtClock::now() const
{
    return seconds<std::chrono::steady_clock>();
}

double QtClock::wallTime() const
{
    return seconds<std::chrono::system_clock>();
}

void QtClock::wakeAt(double time)
{
    m_wakeTime = time;
    arm();
}

void QtClock::arm()
{
    if (std::isinf(m_wakeTime)) {
        m_timer.stop();
        return;
    }
    // A timer of Qt counts milliseconds in an int: a moment far away is reached in several waits.
    constexpr double longestWait = 86'400'000;
    const double wait = std::ceil((m_wakeTime - now()) * 1000);
    m_timer.start(static_cast<int>(std::clamp(wait, 0.0, longestWait)));
}

void QtClock::timerFired()
{
    if (now() < m_wakeTime) {
        arm();
        return;
    }
    m_wakeTime = std::numeric_limits<double>::infinity();
    m_wake();
}

} // namespace velmorath
