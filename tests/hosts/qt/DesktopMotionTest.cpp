#include "DesktopMotion.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace velmorath {

namespace {

using Settings = QMap<QString, QVariantMap>;

/// The desktop's settings, as its portal tells them.
class Portal final : public QDBusVirtualObject {
public:
    explicit Portal(const QByteArray& bus)
        : m_connection(QDBusConnection::connectToBus(QString::fromLatin1(bus), QStringLiteral("portal")))
    {
        qDBusRegisterMetaType<Settings>();
        m_connection.registerVirtualObject(path, this);
        m_connection.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    void set(const QString& group, const QString& name, const QVariant& value)
    {
        m_settings[group][name] = value;
        QDBusMessage signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        m_connection.send(signal << group << name << QVariant::fromValue(QDBusVariant(value)));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return message.member() == QLatin1String("ReadAll")
            && connection.send(message.createReply(QVariant::fromValue(m_settings)));
    }

private:
    const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    QDBusConnection m_connection;
    Settings m_settings;
};

TEST(DesktopMotion, FollowsTheDesktopsSettings)
{
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    ASSERT_TRUE(bus.waitForReadyRead(5000));
    const QByteArray address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    Portal portal(address);
    const QString gnome = QStringLiteral("org.gnome.desktop.interface");
    const QString animations = QStringLiteral("enable-animations");
    portal.set(gnome, animations, false);
    DesktopMotion motion;
    motion.listen();
    EXPECT_FALSE(motion.isReduced()) << "an answer is not waited for";
    EXPECT_TRUE(QTest::qWaitFor([&] { return motion.isReduced(); }));
    portal.set(gnome, animations, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !motion.isReduced(); }));
    portal.set(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("reduced-motion"), 1u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return motion.isReduced(); }));
}

} // namespace

} // namespace velmorath
