#include "UIScrollMotion.h"

namespace velmorath {

namespace {

/// What is left of the speed after a millisecond of running on.
constexpr double decelerationRate = 0.998;
/// Slower than this (points a second) counts as standing still.
constexpr CGFloat standstill = 12;
/// How quickly the content springs, in 1/s; it never swings over.
constexpr double springRate = 11;

} // namespace

UIScrollMotion UIScrollMotion::springing(double start, CGFloat offset, CGFloat velocity, CGFloat target)
{
    const CGFloat limit = springRate * std::fabs(target - offset);
    return {start, offset, std::clamp(velocity, -limit, limit), target};
}

UIScrollMotion::State UIScrollMotion::at(double now) const
{
    const double seconds = std::max(0.0, now - m_start);
    if (m_target) {
        const CGFloat away = m_offset - *m_target;
        const CGFloat drift = m_velocity + springRate * away;
        const double faded = std::exp(-springRate * seconds);
        return {*m_target + (away + drift * seconds) * faded,
            (drift - springRate * (away + drift * seconds)) * faded};
    }
    const double rate = 1000 * std::log(decelerationRate);
    const double faded = std::exp(rate * seconds);
    return {m_offset + m_velocity * (faded - 1) / rate, m_velocity * faded};
}

bool UIScrollMotion::hasArrived(const State& state) const
{
    return std::fabs(state.velocity) < standstill
        && (!m_target || std::fabs(state.offset - *m_target) < 0.25);
}

CGFloat UIScrollMotion::end(CGFloat offset)
{
    m_isOver = true;
    m_offset = offset;
    return offset;
}

CGFloat UIScrollMotion::step(double now, const UIScrollRange& range)
{
    if (m_isOver)
        return range.inside(m_offset);
    const State state = at(now);
    if (!m_target && range.isPastEnd(state.offset)) {
        const CGFloat back = range.inside(state.offset);
        if (!range.bounces)
            return end(back);
        *this = UIScrollMotion(now, state.offset, state.velocity, back);
        return state.offset;
    }
    if (hasArrived(state))
        return end(range.inside(m_target.value_or(state.offset)));
    return range.bounces ? state.offset : range.inside(state.offset);
}

} // namespace velmorath
