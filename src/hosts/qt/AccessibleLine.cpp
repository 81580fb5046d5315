#include "AccessibleLine.h"

namespace velmorath {

QAccessible::State AccessibleLine::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    return state;
}

QString AccessibleLine::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? m_line.text() : QAccessibleWidget::text(kind);
}

void* AccessibleLine::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleLine::text(int startOffset, int endOffset) const
{
    return m_line.text().mid(startOffset, endOffset - startOffset);
}

void AccessibleLine::selection(int, int* startOffset, int* endOffset) const
{
    *startOffset = m_line.hasSelectedText() ? m_line.selectionStart() : 0;
    *endOffset = m_line.hasSelectedText() ? m_line.selectionEnd() : 0;
}

void AccessibleLine::setSelection(int, int startOffset, int endOffset)
{
    m_line.setSelection(startOffset, endOffset - startOffset);
}

int AccessibleLine::offsetAtPoint(const QPoint& point) const
{
    return m_line.cursorPositionAt(m_line.mapFromGlobal(point));
}

QString AccessibleLine::attributes(int, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void AccessibleLine::replaceText(int startOffset, int endOffset, const QString& text)
{
    m_line.setSelection(startOffset, endOffset - startOffset);
    m_line.insert(text);
}

} // namespace velmorath
