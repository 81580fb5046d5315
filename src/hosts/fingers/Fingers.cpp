#include "Fingers.h"
#include <algorithm>

namespace velmorath {

Fingers::Fingers(Report report)
    : m_report(std::move(report))
{
}

void Fingers::touch(const std::vector<HostTouch>& points, const void* device)
{
    Group changed;
    for (const HostTouch& point : points) {
        const auto key = std::pair(device, point.identifier);
        if (point.phase == HostTouch::Phase::began)
            m_touches[key].identifier = m_nextIdentifier++;
        const auto finger = m_touches.find(key);
        if (finger == m_touches.end())
            continue;
        finger->second.phase = point.phase;
        finger->second.location = point.location;
        changed.push_back(finger->second);
        if (point.phase == HostTouch::Phase::ended || point.phase == HostTouch::Phase::cancelled)
            m_touches.erase(finger);
    }
    if (!changed.empty())
        m_report(changed);
}

void Fingers::begin(Group& fingers, const std::vector<CGPoint>& points)
{
    for (const CGPoint point : points)
        fingers.push_back({m_nextIdentifier++, HostTouch::Phase::began, point});
    m_report(Group(fingers));
}

void Fingers::move(Group& fingers, const std::vector<CGPoint>& points)
{
    for (std::size_t i = 0; i < fingers.size(); ++i) {
        fingers[i].phase = HostTouch::Phase::moved;
        fingers[i].location = points[i];
    }
    m_report(Group(fingers));
}

void Fingers::finish(Group& fingers, HostTouch::Phase phase)
{
    Group finished = std::exchange(fingers, {});
    for (HostTouch& finger : finished)
        finger.phase = phase;
    if (!finished.empty())
        m_report(finished);
}

void Fingers::buttonPressed(CGPoint point, bool twoFingers)
{
    if (!m_button.empty())
        return;
    m_buttonStart = point;
    m_buttonLeads = 0;
    if (twoFingers)
        begin(m_button, {{point.x, point.y + 0.5}, {point.x, point.y - 0.5}});
    else
        begin(m_button, {point});
}

std::vector<CGPoint> Fingers::buttonPoints(CGPoint point)
{
    if (m_button.size() < 2)
        return {point};
    // The mouse leads the finger on the side to which it moves first, so that the two never cross there.
    const CGFloat down = point.y - m_buttonStart.y;
    if (m_buttonLeads == 0 && down != 0)
        m_buttonLeads = down > 0 ? 1 : -1;
    const CGFloat sign = m_buttonLeads < 0 ? -1 : 1;
    const CGFloat x = sign * (point.x - m_buttonStart.x);
    const CGFloat y = sign * down + 0.5;
    return {{m_buttonStart.x + x, m_buttonStart.y + y}, {m_buttonStart.x - x, m_buttonStart.y - y}};
}

void Fingers::buttonMoved(CGPoint point)
{
    if (!m_button.empty())
        move(m_button, buttonPoints(point));
}

void Fingers::buttonReleased(CGPoint point)
{
    const std::vector<CGPoint> points = buttonPoints(point);
    for (std::size_t i = 0; i < m_button.size(); ++i)
        m_button[i].location = points[i];
    finish(m_button, HostTouch::Phase::ended);
}

std::vector<CGPoint> Fingers::pinchPoints() const
{
    // A touchpad does not tell where its fingers are. So they come to be on neighbouring rows, nearly
    // wherever the cursor is, by the time that they are known to pinch.
    constexpr double startDistance = 48;
    const double reach = startDistance / 2 * m_pinchScale;
    return {{m_pinchCenter.x, m_pinchCenter.y + reach}, {m_pinchCenter.x, m_pinchCenter.y - reach}};
}

void Fingers::pinch(CGPoint point, double factor)
{
    if (m_pinch.empty()) {
        m_pinchCenter = point;
        m_pinchScale = 1;
        begin(m_pinch, pinchPoints());
    }
    // However the parts add up.
    constexpr double smallestScale = 0.01;
    constexpr double largestScale = 100;
    m_pinchScale = std::clamp(m_pinchScale * factor, smallestScale, largestScale);
    move(m_pinch, pinchPoints());
}

void Fingers::pinchEnded()
{
    finish(m_pinch, HostTouch::Phase::ended);
}

void Fingers::cancelButton()
{
    finish(m_button, HostTouch::Phase::cancelled);
}

void Fingers::cancel()
{
    Group fingers;
    for (const auto& [key, finger] : m_touches)
        fingers.push_back(finger);
    m_touches.clear();
    finish(fingers, HostTouch::Phase::cancelled);
    finish(m_pinch, HostTouch::Phase::cancelled);
    cancelButton();
}

} // namespace velmorath
