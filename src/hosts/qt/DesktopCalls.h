#pragma once

#include <QDBusVirtualObject>
#include <functional>
#include <string>

namespace velmorath {

/// How a desktop starts the program over the session bus, and calls its window (org.freedesktop.Application).
class DesktopCalls final : public QDBusVirtualObject {
public:
    /// Called with the permission to come to the front that the desktop gave, if it gave one.
    explicit DesktopCalls(std::function<void(const std::string& activationToken)> onActivate);

    /// There must be a session bus.
    void listen();

    bool handleMessage(const QDBusMessage&, const QDBusConnection&) override;
    QString introspect(const QString& path) const override;

private:
    std::function<void(const std::string&)> m_onActivate;
};

} // namespace velmorath
