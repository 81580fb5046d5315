#pragma once

#include "DesktopCall.h"
#include <QDBusVirtualObject>
#include <functional>

namespace velmorath {

/// How a desktop starts the program over the session bus, and calls its window (org.freedesktop.Application).
class DesktopCalls final : public QDBusVirtualObject {
public:
    explicit DesktopCalls(std::function<void(const DesktopCall&)> onCall);

    /// There must be a session bus.
    void listen();

    bool handleMessage(const QDBusMessage&, const QDBusConnection&) override;
    QString introspect(const QString& path) const override;

private:
    std::function<void(const DesktopCall&)> m_onCall;
};

} // namespace velmorath
