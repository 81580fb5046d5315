#pragma once

#include <QObject>

namespace velmorath {

/// The desktop's notice that the last changes are not saved. None where there is no session bus or nobody on
/// it who shows notices.
class UnsavedNotice final : public QObject {
public:
    /// The program is on the session bus: from now on notices can be sent.
    void listen();

    void show();
    /// It is true no more.
    void withdraw();

private:
    void send();
    void close(unsigned identifier);

    bool m_isOnBus = false;
    bool m_isWanted = false;
    /// The desktop's number for what it shows; 0 when it shows nothing.
    unsigned m_identifier = 0;
};

} // namespace velmorath
