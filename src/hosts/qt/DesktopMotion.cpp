#include "DesktopMotion.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace velmorath {

namespace {

using Settings = QMap<QString, QVariantMap>;

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString everyDesktop = QStringLiteral("org.freedesktop.appearance");
const QString olderDesktops = QStringLiteral("org.gnome.desktop.interface");

bool areReducing(const Settings& settings)
{
    return settings[everyDesktop].value(QStringLiteral("reduced-motion")).toUInt() == 1
        || !settings[olderDesktops].value(QStringLiteral("enable-animations"), true).toBool();
}

} // namespace

DesktopMotion::DesktopMotion()
{
    qDBusRegisterMetaType<Settings>();
    m_settingChanged.setSingleShot(true);
    m_settingChanged.callOnTimeout([this] { ask(); });
}

void DesktopMotion::listen()
{
    QDBusConnection::sessionBus().connect(
        service, path, interface, QStringLiteral("SettingChanged"), &m_settingChanged, SLOT(start()));
    ask();
}

void DesktopMotion::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    question << QStringList{everyDesktop, olderDesktops};
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), &m_settingChanged);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &m_settingChanged, [this, answer] {
        const QDBusPendingReply<Settings> reply = *answer;
        m_isReduced = reply.isValid() && areReducing(reply.value());
        answer->deleteLater();
    });
}

} // namespace velmorath
