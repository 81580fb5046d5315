#pragma once

#include "CGGeometry.h"
#include <cstdint>
#include <string>
#include <vector>

namespace velmorath {

enum class AccessibilityRole {
    /// Only holds others.
    group,
    /// All that one screen shows, called by the screen's name.
    screen,
    /// Over everything else, until it is answered.
    dialog,
    heading,
    text,
    image,
    button,
    /// One of which exactly one is chosen.
    option,
    list,
    listItem,
    textField,
    textArea,
    /// Something goes on and will end by itself.
    progress,
};

/// A thing on the screen as it is told to somebody who does not see it. All texts are in the user's
/// language.
struct AccessibilityElement {
    /// The same as long as the thing is there, different from every other one's, never zero.
    std::int64_t identifier = 0;
    AccessibilityRole role = AccessibilityRole::group;
    /// What it is, or what it says.
    std::string label{};
    /// What it holds now, as a field its text.
    std::string value{};
    /// The part of the screen, in points, where it can be seen. What is out of sight is not told.
    CGRect frame{};
    /// Keys go there: to one element at most, and to none while a text is edited. Where they go to none of
    /// those on the screen it is the dialog on top, or the first thing that the screen on top has to say:
    /// whoever listens is to hear of it.
    bool isFocused = false;
    /// Keys can be pointed at it. None while a text is edited.
    bool isFocusable = false;
    /// Of options it is the chosen one; a toggle is on. Never for others.
    bool isSelected = false;
    /// Each press turns it on or off.
    bool isToggle = false;
    /// What a tap would do can be done.
    bool isPressable = false;
    /// For an item its place in the whole list, counted from 0, and for the list how many there are, those
    /// out of sight included. Otherwise -1.
    std::int64_t index = -1;
    std::int64_t count = -1;
    /// What else can be done with it, as words on a button would say it.
    std::vector<std::string> actions{};
    /// In reading order.
    std::vector<AccessibilityElement> children{};

    bool operator==(const AccessibilityElement&) const = default;
};

} // namespace velmorath
