#include "AccessibleScreen.h"
#include "AccessibleElement.h"
#include "AccessibleLine.h"
#include "LineEditor.h"
#include "ScreenWidget.h"

namespace velmorath {

namespace {

bool isAboutText(const QAccessibleEvent& event)
{
    return event.type() >= QAccessible::TextAttributeChanged && event.type() <= QAccessible::TextUpdated;
}

/// Takes an event to readers, except for what they would take for something else.
void report(QAccessibleEvent* event)
{
    const auto* const widget = qobject_cast<QWidget*>(event->object());
    // Where the window has the focus, it is something on it that keys go to.
    const auto* const screen = dynamic_cast<const ScreenWidget*>(widget);
    if (screen && event->type() == QAccessible::Focus) {
        screen->mirror().reportFocus();
        return;
    }
    // They are silent about an editor that they know already when it gets the focus.
    if (widget && isAboutText(*event) && !widget->hasFocus())
        return;
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(report);
}

} // namespace

void AccessibleScreen::install()
{
    QAccessible::installUpdateHandler(report);
    // Qt takes the same factory only once.
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
        if (const auto* screen = dynamic_cast<const ScreenWidget*>(object))
            return new AccessibleScreen(screen->mirror());
        if (auto* line = dynamic_cast<LineEditor*>(object))
            return new AccessibleLine(*line);
        return nullptr;
    });
}

AccessibleScreen::AccessibleScreen(const AccessibleMirror& mirror)
    : QAccessibleWidget(&mirror.screen(), QAccessible::Window)
    , m_mirror(mirror)
{
}

int AccessibleScreen::elementCount() const
{
    return static_cast<int>(m_mirror.root().children.size());
}

int AccessibleScreen::childCount() const
{
    return elementCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface* AccessibleScreen::child(int index) const
{
    if (index < 0 || index >= elementCount())
        return QAccessibleWidget::child(index - elementCount());
    return m_mirror.interface(m_mirror.root().children[static_cast<std::size_t>(index)].identifier);
}

int AccessibleScreen::indexOfChild(const QAccessibleInterface* wanted) const
{
    return indexOf(wanted, *this);
}

QAccessibleInterface* AccessibleScreen::focusChild() const
{
    QAccessibleInterface* const focused = m_mirror.focusedInterface();
    return widget()->hasFocus() && focused ? focused : QAccessibleWidget::focusChild();
}

} // namespace velmorath
