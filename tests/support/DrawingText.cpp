#include "DrawingText.h"
#include <cstdio>

namespace velmorath {

namespace {

std::string number(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", value);
    std::string text = buffer;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string numbers(std::initializer_list<double> values)
{
    std::string text;
    for (const double value : values)
        text += " " + number(value);
    return text;
}

std::string rectangle(const CGRect& rect)
{
    return numbers({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
}

std::string colour(const CGColor& color)
{
    const std::string text = numbers({color.red, color.green, color.blue});
    return color.alpha == 1 ? text : text + numbers({color.alpha});
}

std::string quoted(const std::string& text)
{
    return " \"" + text + "\"";
}

std::string fontAndPlace(const CGTextStyle& style)
{
    static constexpr std::string_view alignments[] = {"natural", "left", "center", "right"};
    const std::string family = style.font.family.empty() ? "" : " " + style.font.family;
    return " |" + family + (style.font.bold ? " bold" : "") + numbers({style.font.size}) + " "
        + std::string(alignments[static_cast<std::size_t>(style.alignment)]) + (style.wraps ? " wraps" : "");
}

/// What only this kind of command has.
std::string details(const DrawingCommand& command)
{
    std::string text;
    switch (command.kind) {
    case DrawingCommand::Kind::fill:
        return " |" + colour(command.color);
    case DrawingCommand::Kind::gradient:
        for (std::size_t i = 0; i < command.gradient.colors.size(); ++i)
            text +=
                " |" + colour(command.gradient.colors[i]) + " at" + numbers({command.gradient.locations[i]});
        return text;
    case DrawingCommand::Kind::stroke:
        return " |" + colour(command.color) + " | line" + numbers({command.lineWidth});
    case DrawingCommand::Kind::shadow:
        return " |" + colour(command.color) + " | blur" + numbers({command.blurRadius});
    case DrawingCommand::Kind::text:
        return " |" + colour(command.color) + fontAndPlace(command.textStyle) + quoted(command.text);
    case DrawingCommand::Kind::image:
        return " | pixels" + numbers({command.imagePixels.width, command.imagePixels.height}) + " | "
            + (command.imageBytes ? std::to_string(command.imageBytes) + " bytes"
                                  : "all" + colour(command.color));
    }
    return text;
}

std::string line(const DrawingCommand& command, const CGRect& visible)
{
    static constexpr std::string_view kinds[] = {"fill", "gradient", "stroke", "shadow", "text", "image"};
    std::string text = std::string(kinds[static_cast<std::size_t>(command.kind)]) + rectangle(command.rect);
    if (visible != command.rect)
        text += " | seen" + rectangle(visible);
    if (command.imageAlpha != 1)
        text += " | alpha" + numbers({command.imageAlpha});
    if (command.cornerRadius != 0)
        text += " | radius" + numbers({command.cornerRadius});
    return text + details(command);
}

std::string editor(const HeadlessTextInput& input)
{
    const TextInputTraits& traits = input.traits();
    return "editor" + rectangle(input.frame()) + " | inside" + rectangle(input.clip()) + " | alpha"
        + numbers({input.opacity()}) + " |" + colour(input.style().color) + fontAndPlace(input.style())
        + (traits.multiline ? " | multiline" : "") + (traits.darkKeyboard ? " | dark" : "")
        + (traits.doneKey ? " | done" : "") + " |" + quoted(traits.label) + quoted(input.text());
}

} // namespace

std::vector<std::string> textOf(const DrawingRecorder& drawing, const HeadlessTextInput& input)
{
    const CGRect screen{{0, 0}, Host::current().screen().size()};
    std::vector<std::string> lines;
    for (const DrawingCommand& command : drawing.commands()) {
        const CGRect visible = command.visible.intersected(screen);
        if (!visible.isEmpty())
            lines.push_back(line(command, visible));
    }
    if (input.isEditing())
        lines.push_back(editor(input));
    return lines;
}

} // namespace velmorath
