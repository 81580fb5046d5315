#pragma once

#include "Accessibility.h"
#include <functional>
#include <memory>

namespace velmorath {

struct UIAccessibilityAction {
    /// As words on a button would say it, in the user's language.
    std::string name;
    std::function<void()> perform;
};

/// What a view says of itself to those who do not see it. Groups, dialogs and lists hold what is in them;
/// whatever is in anything else is a part of it and is not told on its own.
struct UIAccessibilityInfo {
    /// Without what the platform finds out: where it is, what is in it, and what keys and presses can do
    /// there.
    AccessibilityElement element{};
    /// What a tap would do; empty when that is nothing. False when it was refused.
    std::function<bool()> press{};
    std::vector<UIAccessibilityAction> actions{};
    /// What the view shows just now, where one view shows different things in turn: a thing is the same to
    /// the reader whichever view shows it. Nothing when the view is the thing.
    std::shared_ptr<const void> subject{};
};

} // namespace velmorath
