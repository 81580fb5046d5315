#include "AccessibleScreen.h"
#include "AccessibleElement.h"
#include "ScreenWidget.h"

namespace velmorath {

void AccessibleScreen::install()
{
    // Qt takes the same factory only once.
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
        const auto* screen = dynamic_cast<const ScreenWidget*>(object);
        return screen ? new AccessibleScreen(screen->mirror()) : nullptr;
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
