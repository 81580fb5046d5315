#include "DrawingRecorder.h"
#include "HeadlessImage.h"

namespace velmorath {

void DrawingRecorder::beginClip(const CGRect& rect, CGFloat)
{
    m_clips.push_back(m_clips.back().intersected(transform().apply(rect)));
}

DrawingCommand& DrawingRecorder::add(DrawingCommand::Kind kind, const CGRect& rect)
{
    DrawingCommand command;
    command.kind = kind;
    command.rect = transform().apply(rect);
    command.visible = command.rect.intersected(m_clips.back());
    m_commands.push_back(command);
    return m_commands.back();
}

void DrawingRecorder::paintColor(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    DrawingCommand& command = add(DrawingCommand::Kind::fill, rect);
    command.color = color;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::paintGradient(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    DrawingCommand& command = add(DrawingCommand::Kind::gradient, rect);
    command.gradient = gradient;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::paintLine(
    const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    DrawingCommand& command = add(DrawingCommand::Kind::stroke, rect.insetBy(-lineWidth / 2, -lineWidth / 2));
    command.color = color;
    command.cornerRadius = cornerRadius;
    command.lineWidth = lineWidth;
}

void DrawingRecorder::paintShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    DrawingCommand& command = add(DrawingCommand::Kind::shadow, rect.offsetBy(offset.dx, offset.dy));
    command.color = color;
    command.cornerRadius = cornerRadius;
    command.blurRadius = blurRadius;
}

void DrawingRecorder::paintText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    DrawingCommand& command = add(DrawingCommand::Kind::text, rect);
    command.text = utf8;
    command.textStyle = style;
    command.color = style.color;
}

void DrawingRecorder::paintImage(const CGImage& image, const CGRect& rect, CGFloat alpha)
{
    DrawingCommand& command = add(DrawingCommand::Kind::image, rect);
    command.imagePixels = image.pixelSize();
    command.imageAlpha = alpha;
    if (const auto* known = dynamic_cast<const HeadlessImage*>(&image)) {
        command.color = known->color();
        command.imageBytes = known->byteCount();
    }
}

std::vector<std::string> DrawingRecorder::texts() const
{
    std::vector<std::string> found;
    for (const DrawingCommand& command : m_commands) {
        if (command.kind == DrawingCommand::Kind::text && !command.visible.isEmpty())
            found.push_back(command.text);
    }
    return found;
}

const DrawingCommand* DrawingRecorder::text(std::string_view text) const
{
    for (const DrawingCommand& command : m_commands) {
        if (command.kind == DrawingCommand::Kind::text && command.text == text && !command.visible.isEmpty())
            return &command;
    }
    return nullptr;
}

CGColor DrawingRecorder::colorAt(CGPoint point) const
{
    CGColor color{0, 0, 0, 0};
    for (const DrawingCommand& command : m_commands) {
        const bool isOpaque = command.kind == DrawingCommand::Kind::fill && command.color.alpha >= 1;
        if (isOpaque && command.visible.contains(point))
            color = command.color;
    }
    return color;
}

} // namespace velmorath
