#include "UnsavedNotice.h"
#include "ApplicationName.h"
#include "Bundle.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace velmorath {

namespace {

QDBusMessage call(const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"), QStringLiteral("org.freedesktop.Notifications"),
        method);
}

} // namespace

void UnsavedNotice::listen()
{
    m_isOnBus = true;
    if (m_isWanted)
        send();
}

void UnsavedNotice::show()
{
    m_isWanted = true;
    if (m_isOnBus)
        send();
}

void UnsavedNotice::withdraw()
{
    m_isWanted = false;
    if (m_identifier != 0)
        close(std::exchange(m_identifier, 0));
}

void UnsavedNotice::send()
{
    const std::string text = Bundle::main().localizedString(
        "The last changes could not be saved. Velmorath keeps trying while it is open.");
    constexpr unsigned replacesNone = 0;
    constexpr int staysAsLongAsOthers = -1;
    QDBusMessage message = call(QStringLiteral("Notify"));
    message << QStringLiteral("Velmorath") << replacesNone << QStringLiteral("velmorath")
            << QStringLiteral("Velmorath") << QString::fromStdString(text) << QStringList()
            << QVariantMap{{QStringLiteral("desktop-entry"), QString(applicationName)}}
            << staysAsLongAsOthers;
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<unsigned> identifier = *answer;
        if (identifier.isError())
            return;
        if (m_isWanted)
            m_identifier = identifier.value();
        else
            close(identifier.value());
    });
}

void UnsavedNotice::close(unsigned identifier)
{
    QDBusConnection::sessionBus().asyncCall(call(QStringLiteral("CloseNotification")) << identifier);
}

} // namespace velmorath
