#include "AccessibleMirror.h"
#include "AccessibleElement.h"
#include "AccessibleNotice.h"
#include <set>

namespace velmorath {

namespace {

/// Seconds. What moves longer than this is told while it moves.
constexpr double longMotion = 1;
/// Milliseconds. Readers ask for what a notice says in their own time.
constexpr int noticeDuration = 10000;
/// Milliseconds. Readers say where something new is by what it has in common with what had the focus before.
constexpr int goingDuration = 1000;

} // namespace

AccessibleMirror::AccessibleMirror(QWidget& screen, Report listener)
    : m_screen(screen)
    , m_report(listener)
    , m_isActive(QAccessible::isActive())
{
    m_going.setSingleShot(true);
    m_going.setInterval(goingDuration);
    m_going.callOnTimeout([this] { reportGone(); });
    QAccessible::installActivationObserver(this);
}

AccessibleMirror::~AccessibleMirror()
{
    QAccessible::removeActivationObserver(this);
    setClient(nullptr);
}

void AccessibleMirror::setClient(HostClient* client)
{
    m_client = client;
    if (client)
        return;
    show({});
    reportGone();
}

void AccessibleMirror::accessibilityActiveChanged(bool active)
{
    m_isActive = active;
    show(active && m_client ? m_client->accessibilityTree() : AccessibilityElement{});
}

void AccessibleMirror::frameMade(bool othersFollow, double now)
{
    if (!m_isActive || !m_client)
        return;
    if (othersFollow) {
        if (!m_movingSince)
            m_movingSince = now;
        if (now - *m_movingSince < longMotion)
            return;
    }
    m_movingSince.reset();
    show(m_client->accessibilityTree());
    reportAnnounced();
}

void AccessibleMirror::announce(const std::string& text)
{
    if (m_isActive)
        m_announced.push_back(QString::fromStdString(text));
}

void AccessibleMirror::reportAnnounced()
{
    for (QString& text : std::exchange(m_announced, {})) {
        auto* const notice = new AccessibleNotice(m_screen, std::move(text));
        const QAccessible::Id identifier = QAccessible::registerAccessibleInterface(notice);
        report(notice, QAccessible::ObjectShow);
        QTimer::singleShot(
            noticeDuration, &m_screen, [identifier] { QAccessible::deleteAccessibleInterface(identifier); });
    }
}

const AccessibleMirror::Place* AccessibleMirror::place(std::int64_t identifier) const
{
    for (const Places* places : {&m_places, &m_gone}) {
        const auto place = places->find(identifier);
        if (place != places->end())
            return &place->second;
    }
    return nullptr;
}

const AccessibilityElement* AccessibleMirror::element(std::int64_t identifier) const
{
    const Place* const found = place(identifier);
    return found ? found->element : nullptr;
}

const AccessibilityElement* AccessibleMirror::around(std::int64_t identifier) const
{
    const Place* const found = place(identifier);
    return found ? found->around : nullptr;
}

QAccessibleInterface* AccessibleMirror::interface(std::int64_t identifier) const
{
    const Place* const found = place(identifier);
    return found ? found->interface : nullptr;
}

void AccessibleMirror::show(AccessibilityElement root)
{
    if (root == m_root)
        return;
    reportGone();
    std::set<std::int64_t> staying;
    collectStaying(root, staying);

    // What was there is kept: places point into it.
    m_goneRoot = std::exchange(m_root, std::move(root));
    const Places before = std::exchange(m_places, {});
    const std::int64_t focusedBefore = std::exchange(m_focused, 0);
    collect(m_root, before);
    letGo(before);
    reportNew(staying, before);
    reportChanges(before);
    const bool wasMoved = m_focused != 0 && !staying.contains(m_focused);
    if ((wasMoved || m_focused != focusedBefore) && m_screen.hasFocus())
        reportFocus();
}

void AccessibleMirror::collect(const AccessibilityElement& around, const Places& before)
{
    for (const AccessibilityElement& child : around.children) {
        const auto known = before.find(child.identifier);
        AccessibleElement* interface = known == before.end() ? nullptr : known->second.interface;
        if (!interface) {
            interface = new AccessibleElement(*this, child.identifier);
            QAccessible::registerAccessibleInterface(interface);
        }
        m_places.emplace(child.identifier, Place{&child, &around == &m_root ? nullptr : &around, interface});
        if (child.isFocused)
            m_focused = child.identifier;
        collect(child, before);
    }
}

void AccessibleMirror::collectStaying(
    const AccessibilityElement& around, std::set<std::int64_t>& staying) const
{
    std::ptrdiff_t last = -1;
    for (const AccessibilityElement& child : around.children) {
        const auto known = m_places.find(child.identifier);
        if (known != m_places.end()) {
            const AccessibilityElement& before = known->second.around ? *known->second.around : m_root;
            const std::ptrdiff_t index = known->second.element - before.children.data();
            if (before.identifier == around.identifier && index > last) {
                last = index;
                staying.insert(child.identifier);
            }
        }
        collectStaying(child, staying);
    }
}

void AccessibleMirror::letGo(const Places& before)
{
    for (const auto& [identifier, place] : before) {
        if (!m_places.contains(identifier))
            m_gone.emplace(identifier, place);
    }
    if (!m_gone.empty())
        m_going.start();
}

void AccessibleMirror::reportGone()
{
    for (const auto& [identifier, place] : m_gone) {
        if (!place.around || !m_gone.contains(place.around->identifier))
            report(place.interface, QAccessible::ObjectDestroyed);
    }
    for (const auto& [identifier, place] : std::exchange(m_gone, {}))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(place.interface));
    m_going.stop();
}

void AccessibleMirror::reportNew(const std::set<std::int64_t>& staying, const Places& before) const
{
    for (const auto& [identifier, place] : m_places) {
        const bool comesAlone = !place.around || staying.contains(place.around->identifier);
        if (comesAlone && !staying.contains(identifier)) {
            if (before.contains(identifier))
                report(place.interface, QAccessible::ObjectDestroyed);
            report(place.interface, QAccessible::ObjectCreated);
        }
        if (place.element->role == AccessibilityRole::dialog && !staying.contains(identifier))
            report(place.interface, QAccessible::DialogStart);
    }
}

void AccessibleMirror::reportChanges(const Places& before)
{
    for (const auto& [identifier, place] : m_places) {
        const auto known = before.find(identifier);
        if (known == before.end())
            continue;
        const AccessibilityElement& was = *known->second.element;
        const AccessibilityElement& is = *place.element;
        if (was.label != is.label)
            report(place.interface, QAccessible::NameChanged);
        if (was.value != is.value)
            report(place.interface, QAccessible::DescriptionChanged);
        if (was.actions != is.actions)
            report(place.interface, QAccessible::ActionChanged);
        reportStates(place, was);
    }
}

void AccessibleMirror::reportStates(const Place& place, const AccessibilityElement& before)
{
    const QAccessible::State was = AccessibleElement::state(before);
    const QAccessible::State is = AccessibleElement::state(*place.element);
    QAccessible::State changed;
    changed.checked = was.checked != is.checked;
    if (!changed.checked)
        return;
    QAccessibleStateChangeEvent event(place.interface, changed);
    m_report(&event);
    // Readers take options for what the arrow keys choose, and say only then that one is chosen.
    if (place.element->role == AccessibilityRole::option && is.checked)
        announce(place.element->label);
}

void AccessibleMirror::reportFocus() const
{
    if (QAccessibleInterface* const focused = focusedInterface())
        report(focused, QAccessible::Focus);
}

void AccessibleMirror::report(QAccessibleInterface* interface, QAccessible::Event type) const
{
    QAccessibleEvent event(interface, type);
    m_report(&event);
}

} // namespace velmorath
