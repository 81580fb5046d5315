#pragma once

#include "HeadlessHost.h"
#include <set>
#include <string>
#include <vector>

namespace velmorath {

/// Somebody who does not see the screen: knows what the tree says, and does what it offers.
class ScreenReader {
public:
    using Lines = std::vector<std::string>;

    explicit ScreenReader(HeadlessHost& host)
        : m_host(host)
    {
    }

    /// The tree that is known, until it is read again.
    const AccessibilityElement& read() { return m_tree = m_host.client().accessibilityTree(); }
    /// An element of that tree; one with the identifier zero when no label is this one.
    AccessibilityElement find(const std::string& label) const { return found(m_tree, label); }

    bool pressKnown(const std::string& label) { return m_host.client().pressElement(find(label).identifier); }
    bool performKnown(const std::string& label, const std::string& action)
    {
        const AccessibilityElement element = find(label);
        for (std::size_t i = 0; i < element.actions.size(); ++i) {
            if (element.actions[i] == action)
                return m_host.client().performElementAction(element.identifier, i);
        }
        return false;
    }
    /// These read first, and wait until everything has come to rest again.
    bool press(const std::string& label)
    {
        read();
        const bool isDone = pressKnown(label);
        m_host.advance(1.5);
        return isDone;
    }
    bool perform(const std::string& label, const std::string& action)
    {
        read();
        const bool isDone = performKnown(label, action);
        m_host.advance(1.5);
        return isDone;
    }

    /// What the screen says, in reading order, with two blanks before what is in something else:
    /// "role label = value (actions)". A star is after a chosen option, [on] or [off] after a toggle, an
    /// arrow after what keys go to; a list says which of its items are in sight.
    Lines everything()
    {
        Lines lines;
        for (const AccessibilityElement& child : read().children)
            describe(child, "", lines);
        return lines;
    }

    /// What is wrong with the screen: things to press without a name, things out of sight, things that
    /// cannot be told apart.
    Lines faults()
    {
        Lines lines;
        std::set<std::int64_t> known{0};
        collectFaults(read(), {{0, 0}, m_host.screen().size()}, known, lines);
        if (known.size() < 3)
            lines.push_back("nothing on the screen");
        return lines;
    }

private:
    static AccessibilityElement found(const AccessibilityElement& around, const std::string& label)
    {
        if (around.label == label)
            return around;
        for (const AccessibilityElement& child : around.children) {
            AccessibilityElement inside = found(child, label);
            if (inside.identifier != 0)
                return inside;
        }
        return {};
    }

    static std::string name(AccessibilityRole role)
    {
        static const Lines names{"group", "screen", "dialog", "heading", "text", "image", "button", "option",
            "list", "item", "field", "area", "progress"};
        return names.at(static_cast<std::size_t>(role));
    }

    static void describe(const AccessibilityElement& element, const std::string& indent, Lines& lines)
    {
        std::string line = indent + name(element.role) + " " + element.label;
        if (!element.value.empty())
            line += " = " + element.value;
        if (element.isToggle)
            line += element.isSelected ? " [on]" : " [off]";
        else if (element.isSelected)
            line += " *";
        if (element.count >= 0 && !element.children.empty()) {
            line += " " + std::to_string(element.children.front().index + 1) + " to "
                + std::to_string(element.children.back().index + 1) + " of " + std::to_string(element.count);
        }
        std::string separator = " (";
        for (const std::string& action : element.actions)
            line += std::exchange(separator, ", ") + action;
        line += element.actions.empty() ? "" : ")";
        lines.push_back(line + (element.isFocused ? " <-" : ""));
        for (const AccessibilityElement& child : element.children)
            describe(child, indent + "  ", lines);
    }

    static void collectFaults(const AccessibilityElement& element, const CGRect& around,
        std::set<std::int64_t>& known, Lines& lines)
    {
        const std::string line = name(element.role) + " " + element.label;
        if ((element.isPressable || element.role != AccessibilityRole::group) && element.label.empty())
            lines.push_back("no label: " + line);
        if (element.frame.isEmpty() || element.frame.intersected(around) != element.frame)
            lines.push_back("out of sight: " + line);
        if (!known.insert(element.identifier).second)
            lines.push_back("identifier used twice: " + line);
        for (const AccessibilityElement& child : element.children)
            collectFaults(child, element.frame, known, lines);
    }

    HeadlessHost& m_host;
    AccessibilityElement m_tree;
};

} // namespace velmorath
