#include "TouchInput.h"
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QTouchEvent>

namespace velmorath {

namespace {

CGPoint toCGPoint(QPointF point)
{
    return {point.x(), point.y()};
}

HostTouch::Phase toPhase(QEventPoint::State state)
{
    switch (state) {
    case QEventPoint::Pressed:
        return HostTouch::Phase::began;
    case QEventPoint::Released:
        return HostTouch::Phase::ended;
    default:
        return HostTouch::Phase::moved;
    }
}

} // namespace

TouchInput::TouchInput(Report report)
    : m_report(std::move(report))
{
}

void TouchInput::touch(const QTouchEvent& event)
{
    Fingers changed;
    for (const QEventPoint& point : event.points()) {
        if (point.state() == QEventPoint::Stationary)
            continue;
        const auto key = std::pair<const void*, int>(event.device(), point.id());
        const HostTouch::Phase phase = toPhase(point.state());
        if (phase == HostTouch::Phase::began)
            m_touchPoints[key].identifier = m_nextIdentifier++;
        const auto finger = m_touchPoints.find(key);
        if (finger == m_touchPoints.end())
            continue;
        finger->second.phase = phase;
        finger->second.location = toCGPoint(point.position());
        changed.push_back(finger->second);
        if (phase == HostTouch::Phase::ended)
            m_touchPoints.erase(finger);
    }
    if (!changed.empty())
        m_report(changed);
}

void TouchInput::begin(Fingers& fingers, const std::vector<CGPoint>& points)
{
    for (const CGPoint point : points)
        fingers.push_back({m_nextIdentifier++, HostTouch::Phase::began, point});
    m_report(Fingers(fingers));
}

void TouchInput::move(Fingers& fingers, const std::vector<CGPoint>& points)
{
    for (std::size_t i = 0; i < fingers.size(); ++i) {
        fingers[i].phase = HostTouch::Phase::moved;
        fingers[i].location = points[i];
    }
    m_report(Fingers(fingers));
}

void TouchInput::finish(Fingers& fingers, HostTouch::Phase phase)
{
    Fingers finished = std::exchange(fingers, {});
    for (HostTouch& finger : finished)
        finger.phase = phase;
    if (!finished.empty())
        m_report(finished);
}

void TouchInput::buttonPressed(QPointF point, bool twoFingers)
{
    if (!m_button.empty())
        return;
    m_buttonStart = point;
    m_buttonLeads = 0;
    if (twoFingers)
        begin(m_button, {{point.x(), point.y() + 0.5}, {point.x(), point.y() - 0.5}});
    else
        begin(m_button, {toCGPoint(point)});
}

std::vector<CGPoint> TouchInput::buttonPoints(QPointF point)
{
    if (m_button.size() == 1)
        return {toCGPoint(point)};
    // The mouse leads the finger on the side to which it moves first, so that the two never cross there.
    QPointF lower = point - m_buttonStart;
    if (m_buttonLeads == 0 && lower.y() != 0)
        m_buttonLeads = lower.y() > 0 ? 1 : -1;
    lower *= m_buttonLeads < 0 ? -1 : 1;
    lower.ry() += 0.5;
    return {toCGPoint(m_buttonStart + lower), toCGPoint(m_buttonStart - lower)};
}

void TouchInput::buttonMoved(QPointF point)
{
    if (!m_button.empty())
        move(m_button, buttonPoints(point));
}

void TouchInput::buttonReleased(QPointF point)
{
    const std::vector<CGPoint> points = buttonPoints(point);
    for (std::size_t i = 0; i < m_button.size(); ++i)
        m_button[i].location = points[i];
    finish(m_button, HostTouch::Phase::ended);
}

std::vector<CGPoint> TouchInput::pinchPoints() const
{
    // A touchpad does not tell where its fingers are. So they come to be on neighbouring rows, nearly
    // wherever the cursor is, by the time that they are known to pinch.
    constexpr double startDistance = 48;
    const double reach = startDistance / 2 * m_pinchScale;
    const CGPoint center = toCGPoint(m_pinchCenter);
    return {{center.x, center.y + reach}, {center.x, center.y - reach}};
}

void TouchInput::pinch(const QNativeGestureEvent& event)
{
    if (event.gestureType() == Qt::EndNativeGesture) {
        finish(m_pinch, HostTouch::Phase::ended);
        return;
    }
    if (event.gestureType() != Qt::ZoomNativeGesture)
        return;
    if (m_pinch.empty()) {
        m_pinchCenter = event.position();
        m_pinchScale = 1;
        begin(m_pinch, pinchPoints());
    }
    m_pinchScale = std::max(0.01, m_pinchScale * (1 + event.value()));
    move(m_pinch, pinchPoints());
}

void TouchInput::cancelButton()
{
    finish(m_button, HostTouch::Phase::cancelled);
}

void TouchInput::cancel()
{
    Fingers fingers;
    for (const auto& [key, finger] : m_touchPoints)
        fingers.push_back(finger);
    m_touchPoints.clear();
    finish(fingers, HostTouch::Phase::cancelled);
    finish(m_pinch, HostTouch::Phase::cancelled);
    cancelButton();
}

} // namespace velmorath
