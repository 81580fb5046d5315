#include "AccessibleElement.h"
#include "AccessibleMirror.h"
#include <algorithm>

namespace velmorath {

namespace {

QString joined(const QString& first, const QString& second)
{
    const QString separator = first.isEmpty() || second.isEmpty() ? QString() : QStringLiteral(", ");
    return first + separator + second;
}

} // namespace

int indexOf(const QAccessibleInterface* child, const QAccessibleInterface& parent)
{
    for (int index = 0; index < parent.childCount(); ++index) {
        if (parent.child(index) == child)
            return index;
    }
    return -1;
}

AccessibleElement::AccessibleElement(AccessibleMirror& mirror, std::int64_t identifier)
    : m_mirror(mirror)
    , m_identifier(identifier)
{
}

const AccessibilityElement& AccessibleElement::element() const
{
    static const AccessibilityElement gone;
    const AccessibilityElement* found = m_mirror.element(m_identifier);
    return found ? *found : gone;
}

bool AccessibleElement::isValid() const
{
    return m_mirror.element(m_identifier);
}

QWindow* AccessibleElement::window() const
{
    return m_mirror.screen().windowHandle();
}

QAccessibleInterface* AccessibleElement::parent() const
{
    const AccessibilityElement* around = m_mirror.around(m_identifier);
    return around ? m_mirror.interface(around->identifier)
                  : QAccessible::queryAccessibleInterface(&m_mirror.screen());
}

int AccessibleElement::childCount() const
{
    return static_cast<int>(element().children.size());
}

QAccessibleInterface* AccessibleElement::child(int index) const
{
    const auto& children = element().children;
    const bool isThere = index >= 0 && index < childCount();
    return isThere ? m_mirror.interface(children[static_cast<std::size_t>(index)].identifier) : nullptr;
}

QAccessibleInterface* AccessibleElement::childAt(int x, int y) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (child(index)->rect().contains(x, y))
            return child(index);
    }
    return nullptr;
}

int AccessibleElement::indexOfChild(const QAccessibleInterface* wanted) const
{
    return indexOf(wanted, *this);
}

QString AccessibleElement::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return nameWithCount();
    case QAccessible::Description:
        return isText() ? QString() : descriptionWithPlace();
    case QAccessible::Value:
        return value();
    default:
        return {};
    }
}

QString AccessibleElement::nameWithCount() const
{
    const QString label = QString::fromStdString(element().label);
    const bool isNamedList = element().count >= 0 && !label.isEmpty();
    return isNamedList ? joined(label, QString::number(element().count)) : label;
}

QString AccessibleElement::descriptionWithPlace() const
{
    const AccessibilityElement* const list = m_mirror.around(m_identifier);
    const bool isItem = list && element().index >= 0;
    const QString place =
        isItem ? QStringLiteral("%1/%2").arg(element().index + 1).arg(list->count) : QString();
    // A check box says itself whether it is on.
    return joined(element().isToggle ? QString() : value(), place);
}

bool AccessibleElement::isText() const
{
    return element().role == AccessibilityRole::textField || element().role == AccessibilityRole::textArea;
}

QString AccessibleElement::value() const
{
    return QString::fromStdString(element().value);
}

QString AccessibleElement::text(int startOffset, int endOffset) const
{
    return value().mid(startOffset, endOffset - startOffset);
}

int AccessibleElement::characterCount() const
{
    return static_cast<int>(value().size());
}

void AccessibleElement::selection(int, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = 0;
}

QString AccessibleElement::attributes(int, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

QRect AccessibleElement::rect() const
{
    const CGRect& frame = element().frame;
    const QRect points =
        QRectF(frame.minX(), frame.minY(), frame.size.width, frame.size.height).toAlignedRect();
    return points.translated(m_mirror.screen().mapToGlobal(QPoint(0, 0)));
}

QAccessible::Role AccessibleElement::role() const
{
    if (element().isToggle)
        return QAccessible::CheckBox;
    switch (element().role) {
    case AccessibilityRole::group:
    case AccessibilityRole::screen:
    // Readers count what is in a list, and would leave out what is out of sight.
    case AccessibilityRole::list:
        return QAccessible::Grouping;
    case AccessibilityRole::dialog:
        return QAccessible::Dialog;
    case AccessibilityRole::heading:
        return QAccessible::Heading;
    case AccessibilityRole::text:
        return QAccessible::StaticText;
    case AccessibilityRole::image:
        return QAccessible::Graphic;
    case AccessibilityRole::button:
        return QAccessible::PushButton;
    case AccessibilityRole::option:
        return QAccessible::RadioButton;
    case AccessibilityRole::listItem:
        return QAccessible::ListItem;
    case AccessibilityRole::textField:
    case AccessibilityRole::textArea:
        return QAccessible::EditableText;
    case AccessibilityRole::progress:
        return QAccessible::ProgressBar;
    }
    return QAccessible::NoRole;
}

QAccessible::State AccessibleElement::state(const AccessibilityElement& element)
{
    QAccessible::State state;
    state.focusable = element.isFocusable || element.isFocused;
    state.focused = element.isFocused;
    state.modal = element.role == AccessibilityRole::dialog;
    state.busy = element.role == AccessibilityRole::progress;
    state.multiLine = element.role == AccessibilityRole::textArea;
    state.editable = state.multiLine || element.role == AccessibilityRole::textField;
    state.checkable = element.isToggle || element.role == AccessibilityRole::option;
    state.checked = element.isSelected;
    return state;
}

QAccessible::State AccessibleElement::state() const
{
    QAccessible::State now = state(element());
    now.invalid = !isValid();
    return now;
}

void* AccessibleElement::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::TextInterface && isText())
        return static_cast<QAccessibleTextInterface*>(this);
    return nullptr;
}

QStringList AccessibleElement::actionNames() const
{
    QStringList names;
    if (element().isPressable)
        names.append(pressAction());
    if (element().isFocusable)
        names.append(setFocusAction());
    for (const std::string& action : element().actions)
        names.append(QString::fromStdString(action));
    return names;
}

QString AccessibleElement::localizedActionName(const QString& name) const
{
    const auto& own = element().actions;
    const bool isOwn = std::find(own.begin(), own.end(), name.toStdString()) != own.end();
    return isOwn ? name : QAccessibleActionInterface::localizedActionName(name);
}

void AccessibleElement::doAction(const QString& name)
{
    HostClient* const client = m_mirror.client();
    if (!client || !isValid())
        return;
    const auto& own = element().actions;
    const auto action = std::find(own.begin(), own.end(), name.toStdString());
    if (action != own.end())
        client->performElementAction(m_identifier, static_cast<std::size_t>(action - own.begin()));
    else if (name == pressAction())
        client->pressElement(m_identifier);
    else if (name == setFocusAction())
        client->focusElement(m_identifier);
}

} // namespace velmorath
