#include "UIAccessibilityTree.h"
#include "UIViewController.h"
#include "UIWindow.h"
#include <algorithm>

namespace velmorath {

namespace {

/// Points. What rounding leaves of the next page is nothing to be told.
constexpr CGFloat leastInSight = 0.5;

bool holdsOthers(AccessibilityRole role)
{
    return role == AccessibilityRole::group || role == AccessibilityRole::screen
        || role == AccessibilityRole::dialog || role == AccessibilityRole::list;
}

bool isUntold(const UIView& view)
{
    return view.isHidden() || view.alpha() < 0.01 || view.isHiddenFromAccessibility();
}

void putInReadingOrder(std::vector<AccessibilityElement>& elements)
{
    std::stable_sort(elements.begin(), elements.end(),
        [](const auto& a, const auto& b) { return isReadBefore(a.frame.origin, b.frame.origin); });
}

AccessibilityElement& firstOf(std::vector<AccessibilityElement>& things, bool (*isWanted)(AccessibilityRole))
{
    const auto found =
        std::find_if(things.begin(), things.end(), [&](const auto& thing) { return isWanted(thing.role); });
    return found == things.end() ? things.front() : *found;
}

/// What is to be heard where keys go to nothing: the dialog, or the screen's heading, or else what comes
/// first.
AccessibilityElement& heardFirst(AccessibilityElement& root)
{
    AccessibilityElement& top = firstOf(root.children, [](AccessibilityRole role) {
        return role == AccessibilityRole::dialog || role == AccessibilityRole::screen;
    });
    if (top.role != AccessibilityRole::screen || top.children.empty())
        return top;
    return firstOf(top.children, [](AccessibilityRole role) { return role == AccessibilityRole::heading; });
}

const AccessibilityElement* find(const AccessibilityElement& around, std::int64_t identifier)
{
    if (around.identifier == identifier)
        return &around;
    for (const AccessibilityElement& child : around.children) {
        if (const AccessibilityElement* found = find(child, identifier))
            return found;
    }
    return nullptr;
}

} // namespace

std::int64_t UIAccessibilityTree::identifier(const std::shared_ptr<const void>& subject)
{
    const auto known = m_identifiers.find(subject);
    return known != m_identifiers.end() ? known->second : m_identifiers[subject] = ++m_lastIdentifier;
}

void UIAccessibilityTree::collect(UIView& view, Reading& reading, std::vector<AccessibilityElement>& siblings)
{
    if (isUntold(view))
        return;
    std::optional<UIAccessibilityInfo> info = view.accessibilityInfo();
    if (!info) {
        collectSubviews(view, reading, siblings);
        return;
    }
    const CGRect frame = view.shownInWindow(view.bounds()).intersected(view.clipInWindow());
    if (frame.isEmpty() || std::min(frame.size.width, frame.size.height) < leastInSight)
        return;
    AccessibilityElement told = info->element;
    told.identifier = identifier(info->subject ? info->subject : view.shared_from_this());
    told.frame = frame;
    told.isPressable = static_cast<bool>(info->press);
    for (const UIAccessibilityAction& action : info->actions)
        told.actions.push_back(action.name);
    told.isFocusable = view.canBecomeFocused() && !UIResponder::current();
    told.isFocused = &view == reading.focused;
    reading.hasFocus |= told.isFocused;
    if (holdsOthers(told.role)) {
        collectSubviews(view, reading, told.children);
        putInReadingOrder(told.children);
    }
    reading.entries.insert_or_assign(told.identifier, Entry{view.shared_from_this(), std::move(*info)});
    siblings.push_back(std::move(told));
}

void UIAccessibilityTree::collectSubviews(
    UIView& view, Reading& reading, std::vector<AccessibilityElement>& siblings)
{
    for (const auto& subview : view.subviews())
        collect(*subview, reading, siblings);
}

UIAccessibilityTree::Reading UIAccessibilityTree::read(UIWindow& window, const UIView* focused)
{
    window.layoutIfNeeded();
    std::erase_if(m_identifiers, [](const auto& entry) { return entry.first.expired(); });
    Reading reading;
    reading.focused = focused;
    reading.root.identifier = identifier(window.shared_from_this());
    reading.root.frame = window.bounds();
    const auto& layers = window.subviews();
    const auto top = std::find(layers.begin(), layers.end(), window.topViewController().view());
    for (auto layer = top; layer != layers.end(); ++layer)
        collect(**layer, reading, reading.root.children);
    putInReadingOrder(reading.root.children);
    return reading;
}

AccessibilityElement UIAccessibilityTree::tell(UIWindow& window, const UIView* focused)
{
    Reading reading = read(window, focused);
    if (!reading.hasFocus && !UIResponder::current() && !reading.root.children.empty())
        heardFirst(reading.root).isFocused = true;
    m_told = std::move(reading.root);
    return m_told;
}

std::optional<UIAccessibilityTree::Entry> UIAccessibilityTree::entryAsTold(
    UIWindow& window, std::int64_t identifier)
{
    const AccessibilityElement* told = find(m_told, identifier);
    Reading now = read(window, nullptr);
    const auto entry = now.entries.find(identifier);
    if (!told || entry == now.entries.end() || entry->second.info.element.label != told->label)
        return {};
    return std::move(entry->second);
}

bool UIAccessibilityTree::press(UIWindow& window, std::int64_t identifier)
{
    const std::optional<Entry> entry = entryAsTold(window, identifier);
    return entry && entry->info.press && entry->info.press();
}

bool UIAccessibilityTree::perform(UIWindow& window, std::int64_t identifier, std::size_t action)
{
    const std::optional<Entry> entry = entryAsTold(window, identifier);
    if (!entry)
        return false;
    const std::vector<std::string>& told = find(m_told, identifier)->actions;
    const auto& offered = entry->info.actions;
    const auto chosen = std::find_if(offered.begin(), offered.end(),
        [&](const auto& candidate) { return action < told.size() && candidate.name == told[action]; });
    if (chosen == offered.end())
        return false;
    chosen->perform();
    return true;
}

std::shared_ptr<UIView> UIAccessibilityTree::view(UIWindow& window, std::int64_t identifier)
{
    const std::optional<Entry> entry = entryAsTold(window, identifier);
    return entry ? entry->view : nullptr;
}

} // namespace velmorath
