#pragma once

#include <QTimer>

namespace velmorath {

/// Whether the desktop's user wants things to move, as the desktop's settings portal says. Without one they
/// move.
class DesktopMotion {
public:
    DesktopMotion();

    /// Asks, now and whenever a setting changes, and waits for no answer. To be called when the program is on
    /// the session bus.
    void listen();

    bool isReduced() const { return m_isReduced; }

private:
    void ask();

    QTimer m_settingChanged;
    bool m_isReduced = false;
};

} // namespace velmorath
