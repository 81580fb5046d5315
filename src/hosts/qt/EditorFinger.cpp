#include "EditorFinger.h"
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QMouseEvent>
#include <QScroller>
#include <QStyleHints>
#include <QTouchEvent>
#include <QWidget>

namespace velmorath {

EditorFinger::EditorFinger(QWidget& surface)
    : QObject(&surface)
    , m_surface(surface)
{
    surface.setAttribute(Qt::WA_AcceptTouchEvents);
    surface.installEventFilter(this);
    m_hold.setSingleShot(true);
    m_hold.setInterval(QGuiApplication::styleHints()->mousePressAndHoldInterval());
    connect(&m_hold, &QTimer::timeout, this, [this] { select(); });
    m_tapped.setSingleShot(true);
    m_tapped.setInterval(QGuiApplication::styleHints()->mouseDoubleClickInterval());

    QScrollerProperties properties;
    properties.setScrollMetric(
        QScrollerProperties::VerticalOvershootPolicy, QScrollerProperties::OvershootAlwaysOff);
    QScroller::scroller(&surface)->setScrollerProperties(properties);
}

bool EditorFinger::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        break;
    default:
        return false;
    }
    auto& touched = *static_cast<QTouchEvent*>(event);
    // A touchpad's fingers are reported as scrolling.
    if (touched.deviceType() == QInputDevice::DeviceType::TouchPad)
        return false;
    touch(touched);
    event->accept();
    return true;
}

void EditorFinger::touch(const QTouchEvent& event)
{
    QScroller& scroller = *QScroller::scroller(&m_surface);
    const auto tellScroller = [&](QScroller::Input input) {
        scroller.handleInput(input, m_place, static_cast<qint64>(event.timestamp()));
    };
    if (!event.points().isEmpty())
        m_place = event.points().first().position();
    switch (event.type()) {
    case QEvent::TouchBegin:
        began(scroller.state() == QScroller::Scrolling);
        tellScroller(QScroller::InputPress);
        break;
    case QEvent::TouchUpdate:
        moved();
        if (m_deed == Deed::scroll)
            tellScroller(QScroller::InputMove);
        break;
    case QEvent::TouchEnd:
        ended();
        tellScroller(QScroller::InputRelease);
        break;
    default:
        m_hold.stop();
        m_deed = Deed::none;
        scroller.stop();
        break;
    }
}

void EditorFinger::began(bool stopsScrolling)
{
    m_deed = stopsScrolling ? Deed::scroll : Deed::tap;
    const bool isSecond = m_tapped.isActive() && isNear(m_start);
    m_tapped.stop();
    m_start = m_place;
    if (isSecond)
        select();
    else if (!stopsScrolling)
        m_hold.start();
}

void EditorFinger::moved()
{
    if (m_deed == Deed::select) {
        click(QEvent::MouseMove, Qt::LeftButton);
    } else if (m_deed == Deed::tap && !isNear(m_start)) {
        m_deed = Deed::scroll;
        m_hold.stop();
    }
}

void EditorFinger::ended()
{
    m_hold.stop();
    if (m_deed == Deed::tap) {
        click(QEvent::MouseButtonPress, Qt::LeftButton);
        m_tapped.start();
    }
    if (m_deed == Deed::tap || m_deed == Deed::select) {
        click(QEvent::MouseButtonRelease, Qt::NoButton);
        QGuiApplication::inputMethod()->show();
    }
    m_deed = Deed::none;
}

void EditorFinger::select()
{
    m_hold.stop();
    m_deed = Deed::select;
    click(QEvent::MouseButtonDblClick, Qt::LeftButton);
}

void EditorFinger::click(QEvent::Type type, Qt::MouseButtons buttons) const
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, m_place, m_surface.mapToGlobal(m_place), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_surface, &event);
}

bool EditorFinger::isNear(QPointF place) const
{
    return (m_place - place).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
}

} // namespace velmorath
