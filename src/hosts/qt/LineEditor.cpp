#include "LineEditor.h"
#include "EditorFinger.h"
#include "TextLayout.h"
#include <QKeyEvent>
#include <QRegularExpression>

namespace velmorath {

namespace {

/// The line's stand-in for a line break of the text.
constexpr QChar keptBreak = QChar::LineSeparator;

} // namespace

LineEditor::LineEditor(
    QWidget& parent, TextInputClient& client, const QString& text, CGTextAlignment alignment, bool doneKey)
    : QLineEdit(&parent)
    , Editor(client)
    , m_doneKey(doneKey)
{
    setFrame(false);
    // Qt's own limit would cut a long text.
    setMaxLength(std::numeric_limits<int>::max());
    setText(QString(text).replace(QLatin1Char('\n'), keptBreak));
    setKnownText(LineEditor::text());
    new EditorFinger(*this);
    setAlignment(TextLayout::toQtAlignment(alignment) | Qt::AlignVCenter);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) { removeLineBreaks(edited); });
    connect(this, &QLineEdit::textChanged, this, [this] { textMayHaveChanged(); });
}

QRect LineEditor::geometryOver(const QRect& frame) const
{
    return frame.adjusted(-TextLayout::editorMarginLeft, 0, TextLayout::editorMarginRight, 0);
}

void LineEditor::start(const std::optional<QPoint>& tap, int)
{
    if (!tap)
        return;
    // What is tapped is the text's beginning, which lies where it does when it has been painted.
    setCursorPosition(0);
    grab();
    setCursorPosition(cursorPositionAt(*tap));
}

QString LineEditor::text() const
{
    return QLineEdit::text().insert(cursorPosition(), unfinished()).replace(keptBreak, QLatin1Char('\n'));
}

void LineEditor::removeLineBreaks(const QString& edited)
{
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|[\n\r\u2029]"));
    if (!edited.contains(lineBreak))
        return;
    const QString before = edited.left(cursorPosition());
    setText(QString(edited).replace(lineBreak, QStringLiteral(" ")));
    setCursorPosition(static_cast<int>(QString(before).replace(lineBreak, QStringLiteral(" ")).size()));
}

QVariant LineEditor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImEnterKeyType)
        return m_doneKey ? Qt::EnterKeyDone : Qt::EnterKeyDefault;
    return QLineEdit::inputMethodQuery(query);
}

void LineEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape)
        didReturn();
    else
        QLineEdit::keyPressEvent(event);
}

void LineEditor::inputMethodEvent(QInputMethodEvent* event)
{
    inputMethodSaid(*event, [&] { QLineEdit::inputMethodEvent(event); });
}

} // namespace velmorath
