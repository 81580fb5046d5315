#include "QtHost.h"
#include "AccessibleScreen.h"
#include "EndSignals.h"
#include "QtImage.h"
#include <QApplication>
#include <QIcon>
#include <QThread>
#include <QWindow>
#include <cstdlib>
#include <utility>

namespace velmorath {

namespace {

constexpr std::chrono::seconds pauseBetweenSaves{30};

/// Desktops for phones say so in the environment: screens and pointers tell nothing, for a phone can
/// have a monitor and a mouse, and a laptop a touch screen.
bool isPhone()
{
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    const QString platform = qEnvironmentVariable("PLASMA_PLATFORM");
    return desktop.contains(QLatin1String("phosh"), Qt::CaseInsensitive)
        || desktop.contains(QLatin1String("plasma-mobile"), Qt::CaseInsensitive)
        || platform.startsWith(QLatin1String("phone"));
}

/// A session that ends may take the display away first, at which Qt calls exit() from inside the loop. What
/// belongs to a thread ends before everything else then, the latest first: Qt still works.
struct RunningLoop {
    QtHost* host = nullptr;

    ~RunningLoop() { breakOff(); }

    void breakOff()
    {
        if (!host)
            return;
        std::exchange(host, nullptr)->detach();
        // What is left of the window cannot be taken down in order any more.
        std::_Exit(EXIT_FAILURE);
    }
};

thread_local RunningLoop s_loop;

QtMessageHandler s_print = nullptr;

/// Under Wayland Qt ends the process with _exit(), which runs nothing more, and does so on whatever thread
/// noticed first. That it says so before, in these words, is the only sign.
void didHear(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    s_print(type, context, message);
    if (!message.startsWith(QLatin1String("The Wayland connection")))
        return;
    if (QThread::currentThread() == qApp->thread()) {
        s_loop.breakOff();
        return;
    }
    QMetaObject::invokeMethod(
        qApp, [] { s_loop.breakOff(); }, Qt::QueuedConnection);
    // The process ends meanwhile, unless the other thread hangs.
    constexpr unsigned long longestWait = 5;
    QThread::sleep(longestWait);
}

} // namespace

QtHost::QtHost(const ProgramFolders& folders)
    : m_clock([this] {
        if (m_client)
            m_client->wake();
    })
    , m_widget(m_clock)
    , m_calls([this](const DesktopCall& call) { answer(call); })
    , m_screen(m_widget, m_motion)
    , m_textInput(m_widget, m_widget.texts())
    , m_files(PosixFiles::forUser(folders.resources), pauseBetweenSaves,
          [this](bool isUnsaved) {
              if (isUnsaved)
                  m_unsavedNotice.show();
              else
                  m_unsavedNotice.withdraw();
          })
    , m_documentsWatch(QString::fromStdString(m_files.documentDirectory().value_or("")),
          [this] {
              if (m_client)
                  m_client->documentsChanged();
          })
    , m_effects(m_widget, QString::fromStdString(folders.soundLibrary))
{
    AccessibleScreen::install();
    m_effects.whenOnSessionBus([this] {
        m_motion.listen();
        m_calls.listen();
        m_unsavedNotice.listen();
        m_documents.listen();
    });
    m_widget.setWindowTitle(QStringLiteral("Velmorath"));
    if (const auto icon = m_files.read(folders.resources + "/icons/velmorath-64.png"))
        m_widget.setWindowIcon(QPixmap::fromImage(QtImage::decoded(*icon)));
    QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &m_widget, [this] { updateState(); });
    // What a log-out finds here must be saved; it may be called off, or be none: the program goes on until
    // the desktop closes its window.
    QObject::connect(
        qApp, &QGuiApplication::commitDataRequest, &m_widget, [this] { m_textInput.breakOff(); });
}

int QtHost::run(HostClient& client)
{
    attach(client);
    const EndSignals signals([] { QCoreApplication::exit(); });
    s_loop.host = this;
    s_print = qInstallMessageHandler(didHear);
    const int code = QApplication::exec();
    s_loop.host = nullptr;
    detach();
    qInstallMessageHandler(s_print);
    return code;
}

void QtHost::attach(HostClient& client)
{
    m_client = &client;
    m_widget.setClient(&client);
    if (isPhone())
        m_widget.showFullScreen();
    else
        m_widget.show();
    QObject::connect(
        m_widget.windowHandle(), &QWindow::visibilityChanged, &m_widget, [this] { updateState(); });
    m_documentsWatch.lookNow();
}

void QtHost::detach()
{
    if (!m_client)
        return;
    // Its client may be gone before this host is.
    m_textInput.end();
    m_client->willTerminate();
    m_files.tryLast();
    m_client = nullptr;
    m_widget.setClient(nullptr);
    m_console.flush();
}

void QtHost::updateState()
{
    if (!m_client)
        return;
    const QWindow::Visibility visibility = m_widget.windowHandle()->visibility();
    const bool isOutOfSight = visibility == QWindow::Hidden || visibility == QWindow::Minimized;
    HostState state = HostState::inactive;
    if (isOutOfSight || QGuiApplication::applicationState() <= Qt::ApplicationHidden)
        state = HostState::background;
    else if (QGuiApplication::applicationState() == Qt::ApplicationActive)
        state = HostState::active;
    if (state == m_state)
        return;
    m_state = state;
    m_client->stateChanged(state);
    if (state == HostState::active)
        m_documentsWatch.lookNow();
}

void QtHost::answer(const DesktopCall& call)
{
    if (!call.activationToken.empty())
        qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(call.activationToken));
    if (m_widget.isMinimized())
        m_widget.setWindowState(m_widget.windowState() & ~Qt::WindowMinimized);
    m_widget.raise();
    m_widget.activateWindow();
    m_widget.open(call.files);
}

} // namespace velmorath
