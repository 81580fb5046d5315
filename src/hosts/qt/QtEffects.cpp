#include "QtEffects.h"
#include "ApplicationName.h"
#include "sound/SoundPlayer.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QFile>
#include <QGuiApplication>
#include <QLibrary>
#include <QScreen>
#include <QSysInfo>
#include <QUrl>

namespace velmorath {

namespace {

const QString mailScheme = QStringLiteral("mailto");

/// Without a bus the library would go and start one.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

void sendOnSessionBus(const QDBusMessage& message)
{
    if (hasSessionBus())
        QDBusConnection::sessionBus().send(message);
}

/// Phones have a device tree, desktops a table of their maker's.
QString modelName()
{
    for (const char* place : {"/proc/device-tree/model", "/sys/class/dmi/id/product_name"}) {
        QFile file(QString::fromLatin1(place));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        constexpr qint64 longestName = 200;
        const QByteArray name = file.read(longestName).replace('\0', "").trimmed();
        if (!name.isEmpty())
            return QString::fromUtf8(name);
    }
    return {};
}

} // namespace

QtEffects::QtEffects(ScreenWidget& screen, QString soundLibrary)
    : m_screen(screen)
    , m_handlers(mailScheme)
    , m_soundLibrary(std::move(soundLibrary))
{
}

QtEffects::~QtEffects()
{
    if (!m_thread)
        return;
    inBackground([this] {
        m_player.reset();
        m_thread->quit();
    });
    constexpr int longestWait = 1000;
    if (m_thread->wait(longestWait))
        return;
    // It hangs in somebody's library: the end of the process is the end of it.
    static_cast<void>(m_worker.release());
    static_cast<void>(m_player.release());
    static_cast<void>(m_thread.release());
}

void QtEffects::inBackground(std::function<void()> work)
{
    if (!m_thread) {
        m_thread = std::make_unique<QThread>();
        m_worker = std::make_unique<QObject>();
        m_worker->moveToThread(m_thread.get());
        m_thread->start();
    }
    QMetaObject::invokeMethod(m_worker.get(), std::move(work), Qt::QueuedConnection);
}

void QtEffects::loadSoundPlayer()
{
    m_soundLibraryTried = true;
    const auto make =
        reinterpret_cast<MakeSoundPlayer>(QLibrary::resolve(m_soundLibrary, "velmorathMakeSoundPlayer"));
    if (make)
        m_player.reset(make());
}

void QtEffects::whenOnSessionBus(std::function<void()> callback)
{
    inBackground([this, callback = std::move(callback)] {
        if (hasSessionBus() && QDBusConnection::sessionBus().isConnected())
            QMetaObject::invokeMethod(&m_screen, callback, Qt::QueuedConnection);
    });
}

void QtEffects::playSound(const std::string& path)
{
    inBackground([this, file = QString::fromStdString(path)] {
        if (!m_soundLibraryTried)
            loadSoundPlayer();
        if (m_player)
            m_player->play(file);
    });
}

void QtEffects::vibrate()
{
    inBackground([] {
        QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("org.sigxcpu.Feedback"),
            QStringLiteral("/org/sigxcpu/Feedback"), QStringLiteral("org.sigxcpu.Feedback"),
            QStringLiteral("TriggerFeedback"));
        constexpr int onceOnly = -1;
        message << applicationName << QStringLiteral("button-pressed") << QVariantMap() << onceOnly;
        sendOnSessionBus(message);
    });
}

void QtEffects::setBadge(long long number)
{
    inBackground([number] {
        QDBusMessage message = QDBusMessage::createSignal(QStringLiteral("/org/velmorath/launcher"),
            QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
        const QVariantMap properties{
            {QStringLiteral("count"), static_cast<qlonglong>(std::max(0LL, number))},
            {QStringLiteral("count-visible"), number > 0},
        };
        message << QStringLiteral("application://%1.desktop").arg(applicationName) << properties;
        sendOnSessionBus(message);
    });
}

bool QtEffects::openAddress(const std::string& address)
{
    const QUrl url(QString::fromStdString(address));
    if (!url.isValid() || url.scheme().isEmpty())
        return false;
    return hasProgramFor(url.scheme()) && QDesktopServices::openUrl(url);
}

bool QtEffects::canSendMail()
{
    return hasProgramFor(mailScheme);
}

bool QtEffects::hasProgramFor(const QString& scheme)
{
    if (scheme == QLatin1String("https") || scheme == QLatin1String("http"))
        return true;
    // Nearly every desktop has one for mail, and hardly any for other schemes.
    return m_handlers.has(scheme).value_or(scheme == mailScheme);
}

Device QtEffects::device()
{
    Device device;
    device.model = modelName().toStdString();
    device.name = QSysInfo::machineHostName().toStdString();
    device.systemName = QSysInfo::productType().toStdString();
    device.systemVersion = QSysInfo::productVersion().toStdString();
    return device;
}

void QtEffects::requestNotificationPermission(std::function<void(bool granted)> answer)
{
    answer(true);
}

} // namespace velmorath
