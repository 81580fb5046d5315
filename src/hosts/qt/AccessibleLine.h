#pragma once

#include <QAccessibleWidget>
#include <QLineEdit>

namespace velmorath {

/// A line that is edited, as screen readers know it. Qt's own says of each character that its attributes end
/// before it, upon which readers leave out the last one.
class AccessibleLine final : public QAccessibleWidget,
                             public QAccessibleTextInterface,
                             public QAccessibleEditableTextInterface {
public:
    explicit AccessibleLine(QLineEdit& line)
        : QAccessibleWidget(&line, QAccessible::EditableText)
        , m_line(line)
    {
    }

    QAccessible::State state() const override;
    QString text(QAccessible::Text) const override;
    void* interface_cast(QAccessible::InterfaceType) override;

    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override { return static_cast<int>(m_line.text().size()); }
    int selectionCount() const override { return m_line.hasSelectedText() ? 1 : 0; }
    void selection(int index, int* startOffset, int* endOffset) const override;
    void addSelection(int startOffset, int endOffset) override { setSelection(0, startOffset, endOffset); }
    void removeSelection(int) override { m_line.deselect(); }
    void setSelection(int index, int startOffset, int endOffset) override;
    int cursorPosition() const override { return m_line.cursorPosition(); }
    void setCursorPosition(int position) override { m_line.setCursorPosition(position); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startOffset, int) override { m_line.setCursorPosition(startOffset); }
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override { replaceText(startOffset, endOffset, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int startOffset, int endOffset, const QString&) override;

private:
    QLineEdit& m_line;
};

} // namespace velmorath
