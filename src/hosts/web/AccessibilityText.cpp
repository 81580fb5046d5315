#include "AccessibilityText.h"
#include "Print.h"
#include <string_view>

namespace velmorath {

namespace {

std::string_view name(AccessibilityRole role)
{
    switch (role) {
    case AccessibilityRole::group:
        return "group";
    case AccessibilityRole::screen:
        return "screen";
    case AccessibilityRole::dialog:
        return "dialog";
    case AccessibilityRole::heading:
        return "heading";
    case AccessibilityRole::text:
        return "text";
    case AccessibilityRole::image:
        return "image";
    case AccessibilityRole::button:
        return "button";
    case AccessibilityRole::option:
        return "option";
    case AccessibilityRole::list:
        return "list";
    case AccessibilityRole::listItem:
        return "listItem";
    case AccessibilityRole::textField:
        return "textField";
    case AccessibilityRole::textArea:
        return "textArea";
    case AccessibilityRole::progress:
        return "progress";
    }
}

void append(std::string& json, std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    json += '"';
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            json += '\\';
            json += character;
        } else if (byte < ' ') {
            json += "\\u00";
            json += digits[byte >> 4];
            json += digits[byte & 15];
        } else {
            json += character;
        }
    }
    json += '"';
}

void append(std::string& json, const AccessibilityElement& element)
{
    json += "{\"id\":" + std::to_string(element.identifier) + ",\"role\":";
    append(json, name(element.role));
    json += ",\"label\":";
    append(json, element.label);
    json += ",\"value\":";
    append(json, element.value);
    if (!element.frame.isEmpty()) {
        const CGRect& frame = element.frame;
        json += ",\"frame\":[" + description(frame.minX()) + "," + description(frame.minY()) + ","
            + description(frame.size.width) + "," + description(frame.size.height) + "]";
    }
    if (element.isFocused)
        json += ",\"focused\":true";
    if (element.isFocusable)
        json += ",\"focusable\":true";
    if (element.isSelected)
        json += ",\"selected\":true";
    if (element.isToggle)
        json += ",\"toggle\":true";
    if (element.isPressable)
        json += ",\"pressable\":true";
    if (element.index >= 0)
        json += ",\"index\":" + std::to_string(element.index);
    if (element.count >= 0)
        json += ",\"count\":" + std::to_string(element.count);
    json += ",\"actions\":[";
    for (const std::string& action : element.actions) {
        if (&action != &element.actions.front())
            json += ',';
        append(json, action);
    }
    json += "],\"children\":[";
    for (const AccessibilityElement& child : element.children) {
        if (&child != &element.children.front())
            json += ',';
        append(json, child);
    }
    json += "]}";
}

} // namespace

std::string toJson(const AccessibilityElement& element)
{
    std::string json;
    append(json, element);
    return json;
}

} // namespace velmorath
