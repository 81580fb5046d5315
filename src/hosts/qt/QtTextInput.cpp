#include "QtTextInput.h"
#include "EditorEffect.h"
#include "LineEditor.h"
#include "QtColor.h"
#include "TextCache.h"
#include "TextEditor.h"
#include <QGuiApplication>
#include <QInputMethod>

namespace velmorath {

namespace {

QPalette makePalette(const QWidget& widget, const CGColor& color)
{
    const QColor text = toQColor(color);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, text);
    return palette;
}

} // namespace

QtTextInput::QtTextInput(QWidget& screen, TextCache& fonts)
    : m_screen(screen)
    , m_fonts(fonts)
{
}

void QtTextInput::begin(
    TextInputClient& client, const std::string& utf8, const CGTextStyle& style, TextInputTraits traits)
{
    end();
    const QString text = QString::fromStdString(utf8);
    const QFont& font = m_fonts.font(style.font);
    m_window = new QWidget(&m_screen);
    if (traits.multiline)
        m_editor = new TextEditor(*m_window, client, text, font, style.alignment);
    else
        m_editor = new LineEditor(*m_window, client, text, style.alignment, traits.doneKey);
    QWidget& widget = m_editor->widget();
    widget.setAccessibleName(QString::fromStdString(traits.label));
    widget.setFont(font);
    widget.setPalette(makePalette(widget, style.color));
    m_effect = new EditorEffect(widget.palette().color(QPalette::Text));
    widget.setGraphicsEffect(m_effect);
    // It must be shown to have the focus, but has no place yet.
    m_window->setGeometry(0, 0, 0, 0);
    m_window->show();
    widget.setFocus(Qt::OtherFocusReason);
    QGuiApplication::inputMethod()->show();
    m_start = std::move(traits);
}

void QtTextInput::place(const CGRect& frame, const CGRect& clip, CGFloat opacity)
{
    if (!m_editor)
        return;
    const QPointF corner = TextLayout::snapped({frame.minX(), frame.minY()}, m_screen.devicePixelRatioF());
    const QPoint point(static_cast<int>(std::floor(corner.x())), static_cast<int>(std::floor(corner.y())));
    const QRect wholePoints(
        point, QSize(static_cast<int>(frame.size.width), static_cast<int>(frame.size.height)));
    if (m_start) {
        m_editor->setMargins(std::max(0, point.y() - static_cast<int>(std::lround(clip.minY()))),
            std::max(0, static_cast<int>(std::lround(clip.maxY())) - wholePoints.bottom() - 1));
    }
    const QRect geometry = m_editor->geometryOver(wholePoints);
    const QRect window = QRectF(clip.minX(), clip.minY(), clip.size.width, clip.size.height).toRect()
        & geometry.adjusted(0, 0, 1, 1);
    m_window->setGeometry(window);
    m_editor->widget().setGeometry(geometry.translated(-window.topLeft()));
    m_effect->set(opacity, corner - point);
    if (const auto start = std::exchange(m_start, std::nullopt))
        startAt(*start, point - geometry.topLeft());
}

void QtTextInput::startAt(const TextInputTraits& start, QPoint textCorner)
{
    std::optional<QPoint> tap;
    if (start.tap)
        tap = textCorner + QPointF(start.tap->x, start.tap->y).toPoint();
    m_editor->start(tap, static_cast<int>(std::lround(start.scrolled)));
}

CGFloat QtTextInput::scrolled() const
{
    return m_editor ? m_editor->scrolled() : 0;
}

void QtTextInput::breakOff()
{
    if (m_editor)
        m_editor->didReturn();
}

void QtTextInput::end()
{
    if (!m_editor)
        return;
    // Let go of first: the last change may start another editing.
    Editor* const editor = std::exchange(m_editor, nullptr);
    QWidget* const window = m_window;
    m_effect = nullptr;
    m_window = nullptr;
    editor->finish();
    // Later, for this may be called from inside the editor.
    window->hide();
    window->deleteLater();
    if (!m_editor) {
        m_screen.setFocus(Qt::OtherFocusReason);
        QGuiApplication::inputMethod()->hide();
    }
}

} // namespace velmorath
