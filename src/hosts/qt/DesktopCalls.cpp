#include "DesktopCalls.h"
#include "ApplicationName.h"
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>

namespace velmorath {

namespace {

const QString interface = QStringLiteral("org.freedesktop.Application");

} // namespace

DesktopCalls::DesktopCalls(std::function<void(const std::string&)> onActivate)
    : m_onActivate(std::move(onActivate))
{
}

void DesktopCalls::listen()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    // The object first: with the name comes the call that the program was started for.
    bus.registerVirtualObject(
        QLatin1Char('/') + QString(applicationName).replace(QLatin1Char('.'), QLatin1Char('/')), this);
    bus.registerService(applicationName);
}

bool DesktopCalls::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.interface() != interface || message.member() != QLatin1String("Activate")
        || message.signature() != QLatin1String("a{sv}"))
        return false;
    const auto platformData = qdbus_cast<QVariantMap>(message.arguments().constFirst());
    m_onActivate(platformData.value(QStringLiteral("activation-token")).toString().toStdString());
    return bus.send(message.createReply());
}

QString DesktopCalls::introspect(const QString&) const
{
    return QStringLiteral("<interface name=\"org.freedesktop.Application\">"
                          "<method name=\"Activate\"><arg type=\"a{sv}\" direction=\"in\"/></method>"
                          "</interface>");
}

} // namespace velmorath
