#include "DesktopCalls.h"
#include "ApplicationName.h"
#include "QtDocuments.h"
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>

namespace velmorath {

namespace {

const QString interface = QStringLiteral("org.freedesktop.Application");

} // namespace

DesktopCalls::DesktopCalls(std::function<void(const DesktopCall&)> onCall)
    : m_onCall(std::move(onCall))
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
    const bool isOpen =
        message.member() == QLatin1String("Open") && message.signature() == QLatin1String("asa{sv}");
    const bool isActivate =
        message.member() == QLatin1String("Activate") && message.signature() == QLatin1String("a{sv}");
    if (message.interface() != interface || !(isOpen || isActivate))
        return false;
    const auto platformData = qdbus_cast<QVariantMap>(message.arguments().constLast());
    DesktopCall call{platformData.value(QStringLiteral("activation-token")).toString().toStdString(), {}};
    if (isOpen) {
        for (const QString& address : message.arguments().constFirst().toStringList())
            call.files.push_back(QtDocuments::path(address.toStdString()));
    }
    m_onCall(call);
    return bus.send(message.createReply());
}

QString DesktopCalls::introspect(const QString&) const
{
    return QStringLiteral("<interface name=\"org.freedesktop.Application\">"
                          "<method name=\"Activate\"><arg type=\"a{sv}\" direction=\"in\"/></method>"
                          "<method name=\"Open\"><arg type=\"as\" direction=\"in\"/>"
                          "<arg type=\"a{sv}\" direction=\"in\"/></method>"
                          "</interface>");
}

} // namespace velmorath
