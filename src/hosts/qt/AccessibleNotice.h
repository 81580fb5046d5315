#pragma once

#include <QAccessible>
#include <QWidget>

namespace velmorath {

/// Something that happened, as screen readers are told it: an element that appears and says it.
class AccessibleNotice final : public QAccessibleInterface {
public:
    /// The screen outlives this.
    AccessibleNotice(QWidget& screen, QString text)
        : m_screen(screen)
        , m_text(std::move(text))
    {
    }

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_screen.windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&m_screen); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_text : QString();
    }
    void setText(QAccessible::Text, const QString&) override { }
    QRect rect() const override { return {}; }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }

private:
    QWidget& m_screen;
    QString m_text;
};

} // namespace velmorath
