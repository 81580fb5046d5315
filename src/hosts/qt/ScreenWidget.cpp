#include "ScreenWidget.h"
#include "QtContext.h"
#include "QtDocuments.h"
#include <QApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPaintEvent>
#include <QScreen>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWindow>

namespace velmorath {

namespace {

/// The whole points that a rectangle touches.
QRect pointsAround(const CGRect& rect)
{
    return QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height).toAlignedRect();
}

/// The left button of a real mouse: not one that Qt makes up for a finger, which comes as a touch.
bool isFinger(const QMouseEvent& event)
{
    return event.button() == Qt::LeftButton && event.source() == Qt::MouseEventNotSynthesized;
}

CGPoint toCGPoint(QPointF point)
{
    return {point.x(), point.y()};
}

HostTouch::Phase phase(QEventPoint::State state)
{
    switch (state) {
    case QEventPoint::Pressed:
        return HostTouch::Phase::began;
    case QEventPoint::Released:
        return HostTouch::Phase::ended;
    default:
        return HostTouch::Phase::moved;
    }
}

/// Nothing for keys that mean nothing outside a text.
std::optional<HostKey> hostKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Up:
        return HostKey::up;
    case Qt::Key_Down:
        return HostKey::down;
    case Qt::Key_Left:
        return HostKey::left;
    case Qt::Key_Right:
        return HostKey::right;
    case Qt::Key_Home:
        return HostKey::home;
    case Qt::Key_End:
        return HostKey::end;
    case Qt::Key_PageUp:
        return HostKey::pageUp;
    case Qt::Key_PageDown:
        return HostKey::pageDown;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return HostKey::tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return HostKey::enter;
    case Qt::Key_Space:
        return HostKey::space;
    case Qt::Key_Escape:
        return HostKey::escape;
    case Qt::Key_Insert:
        return HostKey::insert;
    case Qt::Key_F2:
        return HostKey::edit;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return HostKey::remove;
    case Qt::Key_Z:
        if (event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier))
            return HostKey::redo;
        return event.modifiers() == Qt::ControlModifier ? std::optional(HostKey::undo) : std::nullopt;
    case Qt::Key_N:
        return (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier
            ? std::optional(HostKey::insert)
            : std::nullopt;
    default:
        return {};
    }
}

/// The path of a single file that is dragged; nothing for anything else.
std::optional<QString> droppedFile(const QMimeData& dragged)
{
    const QList<QUrl> addresses = dragged.urls();
    const bool isFile = addresses.size() == 1 && addresses.first().isLocalFile();
    return isFile ? std::optional(addresses.first().toLocalFile()) : std::nullopt;
}

} // namespace

ScreenWidget::ScreenWidget(const Clock& clock)
    : m_clock(clock)
    , m_mirror(*this)
    , m_fingers([this](const std::vector<HostTouch>& touches) {
        if (m_client)
            m_client->touchesChanged(touches, m_clock.now());
    })
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAcceptDrops(true);
    setMinimumSize(240, 320);
    resize(375, 667);
    m_frameTimer.setSingleShot(true);
    m_frameTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_frameTimer, &QTimer::timeout, this, [this] { makeFrame(); });
}

void ScreenWidget::setClient(HostClient* client)
{
    m_client = client;
    m_mirror.setClient(client);
}

void ScreenWidget::announce(const std::string& text)
{
    m_mirror.announce(text);
    requestFrame();
}

bool ScreenWidget::isInSight() const
{
    return isVisible() && windowHandle()->isExposed();
}

bool ScreenWidget::displayPacesFrames() const
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

void ScreenWidget::requestFrame()
{
    if (m_frameWanted)
        return;
    m_frameWanted = true;
    if (isInSight())
        scheduleFrame();
}

void ScreenWidget::scheduleFrame()
{
    // A display answers what it was given: after a frame that painted nothing it would answer at once.
    if (displayPacesFrames() && m_lastFramePainted) {
        windowHandle()->requestUpdate();
        return;
    }
    // Otherwise Qt knows the display's rate, but not its beat.
    const double rate = std::clamp(screen()->refreshRate(), 30.0, 240.0);
    const double wait = m_lastFrame + 1 / rate - m_clock.now();
    m_frameTimer.start(std::max(0, static_cast<int>(std::lround(wait * 1000))));
}

void ScreenWidget::makeFrame()
{
    if (!m_frameWanted || !m_client || !isInSight())
        return;
    m_frameWanted = false;
    m_lastFrame = m_clock.now();
    const CGRect damage = m_client->prepareFrame();
    m_lastFramePainted = !damage.isEmpty();
    if (m_lastFramePainted)
        repaint(pointsAround(damage));
    m_mirror.frameMade(m_frameWanted, m_lastFrame);
    // What keeps the client from using one is on the screen; when that goes, frames come to rest again.
    if (!m_frameWanted)
        openWaitingFiles();
}

void ScreenWidget::open(const std::vector<std::string>& paths)
{
    for (const std::string& path : paths)
        m_waitingFiles.push_back(QtDocuments::read(QString::fromStdString(path)));
    requestFrame();
}

void ScreenWidget::openWaitingFiles()
{
    while (m_client && !m_waitingFiles.empty() && m_client->documentOpened(m_waitingFiles.front()))
        m_waitingFiles.pop_front();
}

void ScreenWidget::paintEvent(QPaintEvent* event)
{
    if (!m_client)
        return;
    if (m_scale != devicePixelRatioF())
        QMetaObject::invokeMethod(
            this, [this] { screenChanged(); }, Qt::QueuedConnection);
    QPainter painter(this);
    QtContext context(painter, m_texts, m_shadows);
    const QRect area = event->rect();
    m_client->draw(context, CGRectMake(area.x(), area.y(), area.width(), area.height()));
}

void ScreenWidget::screenChanged()
{
    m_scale = devicePixelRatioF();
    if (!m_client)
        return;
    m_client->screenChanged();
    const CGRect damage = m_client->prepareFrame();
    if (!damage.isEmpty())
        update(pointsAround(damage));
}

void ScreenWidget::resizeEvent(QResizeEvent*)
{
    screenChanged();
}

void ScreenWidget::showEvent(QShowEvent*)
{
    // Never by clicks or the Tab key: they would take the focus from the editor.
    setFocus(Qt::OtherFocusReason);
    windowHandle()->installEventFilter(this);
}

void ScreenWidget::hideEvent(QHideEvent*)
{
    m_fingers.cancel();
}

bool ScreenWidget::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest && m_frameWanted) {
        makeFrame();
        return true;
    }
    if (event->type() == QEvent::Expose && m_frameWanted)
        QMetaObject::invokeMethod(
            this, [this] { makeFrame(); }, Qt::QueuedConnection);
    return QWidget::eventFilter(object, event);
}

bool ScreenWidget::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return touchEvent(*static_cast<QTouchEvent*>(event));
    case QEvent::TouchCancel:
        m_fingers.cancel();
        return true;
    case QEvent::WindowDeactivate:
        m_fingers.cancelButton();
        break;
    case QEvent::NativeGesture:
        pinchEvent(*static_cast<QNativeGestureEvent*>(event));
        return true;
    default:
        break;
    }
    return QWidget::event(event);
}

bool ScreenWidget::touchEvent(QTouchEvent& event)
{
    // A touchpad's fingers are reported as scrolling and pinches.
    if (event.deviceType() == QInputDevice::DeviceType::TouchPad)
        return false;
    event.accept();
    std::vector<HostTouch> changed;
    for (const QEventPoint& point : event.points()) {
        if (point.state() != QEventPoint::Stationary)
            changed.push_back({point.id(), phase(point.state()), toCGPoint(point.position())});
    }
    m_fingers.touch(changed, event.device());
    return true;
}

void ScreenWidget::pinchEvent(const QNativeGestureEvent& event)
{
    if (event.gestureType() == Qt::ZoomNativeGesture)
        m_fingers.pinch(toCGPoint(event.position()), 1 + event.value());
    else if (event.gestureType() == Qt::EndNativeGesture)
        m_fingers.pinchEnded();
}

void ScreenWidget::mousePressEvent(QMouseEvent* event)
{
    if (isFinger(*event))
        m_fingers.buttonPressed(
            toCGPoint(event->position()), event->modifiers().testFlag(Qt::ControlModifier));
}

void ScreenWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void ScreenWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (event->source() == Qt::MouseEventNotSynthesized)
        m_fingers.buttonMoved(toCGPoint(event->position()));
}

void ScreenWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (isFinger(*event))
        m_fingers.buttonReleased(toCGPoint(event->position()));
}

void ScreenWidget::keyPressEvent(QKeyEvent* event)
{
    const std::optional<HostKey> key = hostKey(*event);
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier) || event->key() == Qt::Key_Backtab;
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    if (!m_client || !key || !m_client->keyPressed({*key, shift, alt, event->isAutoRepeat()}))
        event->ignore();
}

void ScreenWidget::wheelEvent(QWheelEvent* event)
{
    constexpr double pointsPerLine = 20;
    constexpr double unitsPerNotch = 120;
    const double pointsPerUnit = QApplication::wheelScrollLines() * pointsPerLine / unitsPerNotch;
    // The pixel values of X11 depend on the driver and mean nothing.
    const bool knowsPixels =
        !event->pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
    const QPointF by =
        knowsPixels ? QPointF(event->pixelDelta()) : QPointF(event->angleDelta()) * pointsPerUnit;
    if (m_client && !by.isNull())
        m_client->scrolled({event->position().x(), event->position().y()}, {by.x(), by.y()});
    event->accept();
}

void ScreenWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (droppedFile(*event->mimeData()) || event->mimeData()->hasText())
        event->acceptProposedAction();
}

void ScreenWidget::dropEvent(QDropEvent* event)
{
    const QMimeData& dropped = *event->mimeData();
    const std::optional<QString> path = droppedFile(dropped);
    const Result<std::string> file =
        path ? QtDocuments::read(*path) : Result<std::string>(dropped.text().toStdString());
    if (m_client && m_client->documentOpened(file))
        event->acceptProposedAction();
}

} // namespace velmorath
