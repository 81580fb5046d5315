#pragma once

#include "HostClient.h"
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace velmorath {

/// Makes fingers of what a machine reports: a touch screen's own, the mouse's left button (one finger, or
/// with Ctrl two that mirror each other about the point where the button went down), and a touchpad's pinch.
class Fingers {
public:
    using Report = std::function<void(const std::vector<HostTouch>&)>;

    /// The function gets those that changed.
    explicit Fingers(Report);

    /// What changed on a touch screen; the identifiers are the device's own numbers.
    void touch(const std::vector<HostTouch>&, const void* device = nullptr);

    void buttonPressed(CGPoint, bool twoFingers);
    void buttonMoved(CGPoint);
    void buttonReleased(CGPoint);

    /// The pinch is this many times as wide as before. It begins with the first part, where the cursor is.
    void pinch(CGPoint, double factor);
    void pinchEnded();

    /// The system takes the fingers away, or only the mouse's.
    void cancel();
    void cancelButton();

private:
    using Group = std::vector<HostTouch>;

    void begin(Group&, const std::vector<CGPoint>&);
    void move(Group&, const std::vector<CGPoint>&);
    void finish(Group&, HostTouch::Phase);
    std::vector<CGPoint> buttonPoints(CGPoint);
    std::vector<CGPoint> pinchPoints() const;

    Report m_report;
    std::int64_t m_nextIdentifier = 1;

    /// By device and by the device's own number.
    std::map<std::pair<const void*, std::int64_t>, HostTouch> m_touches;

    Group m_button;
    CGPoint m_buttonStart;
    /// Which of the two fingers the mouse leads: 1 the lower one, -1 the upper one, 0 not decided yet.
    int m_buttonLeads = 0;

    Group m_pinch;
    CGPoint m_pinchCenter;
    double m_pinchScale = 1;
};

} // namespace velmorath
