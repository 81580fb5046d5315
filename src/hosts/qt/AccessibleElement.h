#pragma once

#include "Accessibility.h"
#include <QAccessible>

namespace velmorath {

class AccessibleMirror;

/// The place of a child among those of its parent, -1 when it is none of them.
int indexOf(const QAccessibleInterface* child, const QAccessibleInterface& parent);

/// One element of the screen as screen readers know it. Not valid any more when the element has gone.
class AccessibleElement final : public QAccessibleInterface,
                                public QAccessibleActionInterface,
                                public QAccessibleTextInterface {
public:
    /// The mirror outlives this.
    AccessibleElement(AccessibleMirror&, std::int64_t identifier);

    static QAccessible::State state(const AccessibilityElement&);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface*) const override;
    QString text(QAccessible::Text) const override;
    /// Texts are changed in the editor that a press opens.
    void setText(QAccessible::Text, const QString&) override { }
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString& name) const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    /// The text of a field or an area, to be read: it is selected and changed in the editor.
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    int selectionCount() const override { return 0; }
    void selection(int index, int* startOffset, int* endOffset) const override;
    void addSelection(int, int) override { }
    void removeSelection(int) override { }
    void setSelection(int, int, int) override { }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override { }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override { }
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

private:
    bool isText() const;
    QString value() const;
    /// Qt has no other means to say how many items a list has, and which of them this is: those out of sight
    /// have no interface.
    QString nameWithCount() const;
    QString descriptionWithPlace() const;
    /// An empty one when it has gone.
    const AccessibilityElement& element() const;

    AccessibleMirror& m_mirror;
    std::int64_t m_identifier;
};

} // namespace velmorath
