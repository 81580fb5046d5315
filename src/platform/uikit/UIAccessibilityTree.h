#pragma once

#include "UIView.h"
#include <map>

namespace velmorath {

class UIWindow;

/// Tells what is on the screen to those who do not see it, and does what they choose from it. Nothing is
/// kept up to date: the views are asked each time. An element that has come to be another one since it was
/// told, or to offer other things, does nothing, so that nobody deletes what took the place of a row.
class UIAccessibilityTree {
public:
    /// The screen on top and what lies over it. `focused` is the view that keys go to, if any.
    AccessibilityElement tell(UIWindow&, const UIView* focused);

    /// These return false when the element is not there any more, or when nothing can be done with it.
    bool press(UIWindow&, std::int64_t identifier);
    bool perform(UIWindow&, std::int64_t identifier, std::size_t action);
    /// Nothing for an element that is not there.
    std::shared_ptr<UIView> view(UIWindow&, std::int64_t identifier);

private:
    struct Entry {
        std::shared_ptr<UIView> view;
        UIAccessibilityInfo info;
    };
    /// The screen as it is now.
    struct Reading {
        const UIView* focused = nullptr;
        bool hasFocus = false;
        AccessibilityElement root;
        std::map<std::int64_t, Entry> entries;
    };

    Reading read(UIWindow&, const UIView* focused);
    void collect(UIView&, Reading&, std::vector<AccessibilityElement>& siblings);
    void collectSubviews(UIView&, Reading&, std::vector<AccessibilityElement>& siblings);
    /// The entry of an element that is what it was when it was told; nothing for others.
    std::optional<Entry> entryAsTold(UIWindow&, std::int64_t identifier);
    std::int64_t identifier(const std::shared_ptr<const void>& subject);

    AccessibilityElement m_told;
    std::map<std::weak_ptr<const void>, std::int64_t, std::owner_less<>> m_identifiers;
    std::int64_t m_lastIdentifier = 0;
};

} // namespace velmorath
