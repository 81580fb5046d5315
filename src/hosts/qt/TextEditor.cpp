#include "TextEditor.h"
#include "EditorFinger.h"
#include "TextLayout.h"
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextFrame>

namespace velmorath {

TextEditor::TextEditor(QWidget& parent, TextInputClient& client, const QString& text, const QFont& font,
    CGTextAlignment alignment)
    : QTextEdit(&parent)
    , Editor(client)
{
    setAcceptRichText(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    viewport()->setAutoFillBackground(false);
    document()->setDefaultFont(font);
    document()->setDocumentMargin(0);
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(TextLayout::toQtAlignment(alignment));
    document()->setDefaultTextOption(option);
    new EditorFinger(*viewport());
    setPlainText(text);
    moveCursor(QTextCursor::End);
    setKnownText(TextEditor::text());
    connect(this, &QTextEdit::textChanged, this, [this] { textMayHaveChanged(); });
}

void TextEditor::setMargins(int above, int below)
{
    m_above = above;
    m_below = below;
    // To readers it would be a change of the text.
    const QSignalBlocker blocker(document());
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    format.setTopMargin(above);
    format.setBottomMargin(below);
    document()->rootFrame()->setFrameFormat(format);
    // Nobody shall undo this.
    document()->clearUndoRedoStacks();
}

void TextEditor::start(const std::optional<QPoint>& tap, int scrolled)
{
    verticalScrollBar()->setValue(scrolled);
    if (tap)
        setTextCursor(cursorForPosition(*tap));
    ensureCursorVisible();
}

int TextEditor::scrolled() const
{
    return verticalScrollBar()->value();
}

QString TextEditor::text() const
{
    // Not toPlainText(), which makes plain spaces of those that do not break.
    QString text = document()->toRawText();
    text.chop(
        text.endsWith(QChar::ParagraphSeparator) && text.size() == document()->characterCount() ? 1 : 0);
    text.insert(textCursor().position(), unfinished());
    for (QChar& character : text) {
        if (character == QChar::ParagraphSeparator || character == QChar::LineSeparator)
            character = QLatin1Char('\n');
    }
    return text;
}

void TextEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        didReturn();
    else
        QTextEdit::keyPressEvent(event);
}

void TextEditor::inputMethodEvent(QInputMethodEvent* event)
{
    inputMethodSaid(*event, [&] { QTextEdit::inputMethodEvent(event); });
}

} // namespace velmorath
