#include "DrawingRecorder.h"
#include "HeadlessImage.h"

namespace velmorath {

void DrawingRecorder::restoreState()
{
    m_state = m_saved.back();
    m_saved.pop_back();
}

void DrawingRecorder::concatenate(const CGAffineTransform& transform)
{
    m_state.transform = transform.concatenated(m_state.transform);
}

void DrawingRecorder::clip(const CGRect& rect, CGFloat)
{
    m_state.clip = m_state.clip.intersected(m_state.transform.apply(rect));
}

DrawingCommand& DrawingRecorder::add(DrawingCommand::Kind kind, const CGRect& rect)
{
    DrawingCommand command;
    command.kind = kind;
    command.rect = m_state.transform.apply(rect);
    command.visible = command.rect.intersected(m_state.clip);
    command.alpha = m_state.alpha;
    m_commands.push_back(command);
    return m_commands.back();
}

void DrawingRecorder::fill(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    DrawingCommand& command = add(DrawingCommand::Kind::fill, rect);
    command.color = color;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::fill(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    DrawingCommand& command = add(DrawingCommand::Kind::gradient, rect);
    command.gradient = gradient;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::stroke(
    const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    DrawingCommand& command = add(DrawingCommand::Kind::stroke, rect);
    command.lineWidth = lineWidth;
    command.color = color;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::drawShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    DrawingCommand& command = add(DrawingCommand::Kind::shadow, rect.offsetBy(offset.dx, offset.dy));
    command.blurRadius = blurRadius;
    command.color = color;
    command.cornerRadius = cornerRadius;
}

void DrawingRecorder::drawText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    DrawingCommand& command = add(DrawingCommand::Kind::text, rect);
    command.text = utf8;
    command.textStyle = style;
    command.color = style.color;
}

void DrawingRecorder::drawImage(const CGImage& image, const CGRect& rect)
{
    DrawingCommand& command = add(DrawingCommand::Kind::image, rect);
    command.imagePixels = image.pixelSize();
    if (const auto* known = dynamic_cast<const HeadlessImage*>(&image)) {
        command.color = known->color();
        command.imageBytes = known->byteCount();
    }
}

std::vector<std::string> DrawingRecorder::texts() const
{
    std::vector<std::string> found;
    for (const DrawingCommand& command : m_commands) {
        if (command.kind == DrawingCommand::Kind::text && !command.visible.isEmpty() && command.alpha > 0)
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
        const bool isOpaque =
            command.kind == DrawingCommand::Kind::fill && command.color.alpha * command.alpha >= 1;
        if (isOpaque && command.visible.contains(point))
            color = command.color;
    }
    return color;
}

} // namespace velmorath
