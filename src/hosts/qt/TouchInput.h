#pragma once

#include "HostClient.h"
#include <QPointF>
#include <functional>
#include <map>
#include <utility>
#include <vector>

class QNativeGestureEvent;
class QTouchEvent;

namespace velmorath {

/// Makes fingers of what Qt reports: a touch screen's own, the mouse's left button (one finger, or with
/// Ctrl two that mirror each other about the point where the button went down), and a touchpad's pinch.
class TouchInput {
public:
    using Report = std::function<void(const std::vector<HostTouch>&)>;

    explicit TouchInput(Report);

    void touch(const QTouchEvent&);

    void buttonPressed(QPointF, bool twoFingers);
    void buttonMoved(QPointF);
    void buttonReleased(QPointF);

    /// The part of the pinch that a touchpad reports step by step.
    void pinch(const QNativeGestureEvent&);

    /// The system takes the fingers away, or only the mouse's.
    void cancel();
    void cancelButton();

    bool isEmpty() const { return m_touchPoints.empty() && m_button.empty() && m_pinch.empty(); }

private:
    using Fingers = std::vector<HostTouch>;

    void begin(Fingers&, const std::vector<CGPoint>&);
    void move(Fingers&, const std::vector<CGPoint>&);
    void finish(Fingers&, HostTouch::Phase);
    std::vector<CGPoint> buttonPoints(QPointF);
    std::vector<CGPoint> pinchPoints() const;

    Report m_report;
    std::int64_t m_nextIdentifier = 1;

    /// By device and by the device's own number.
    std::map<std::pair<const void*, int>, HostTouch> m_touchPoints;

    Fingers m_button;
    QPointF m_buttonStart;
    /// Which of the two fingers the mouse leads: 1 the lower one, -1 the upper one, 0 not decided yet.
    int m_buttonLeads = 0;

    Fingers m_pinch;
    QPointF m_pinchCenter;
    double m_pinchScale = 1;
};

} // namespace velmorath
