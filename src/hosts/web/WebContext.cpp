#include "WebContext.h"
#include "WebImage.h"
#include <algorithm>
#include <cmath>

namespace velmorath {

namespace {

/// The pixels whose middles are inside.
CGRect wholePixels(const CGRect& rect)
{
    const CGFloat left = std::round(rect.minX());
    const CGFloat top = std::round(rect.minY());
    return CGRectMake(left, top, std::round(rect.maxX()) - left, std::round(rect.maxY()) - top);
}

/// All pixels that it touches.
CGRect pixelsAround(const CGRect& rect)
{
    const CGFloat left = std::floor(rect.minX());
    const CGFloat top = std::floor(rect.minY());
    return CGRectMake(left, top, std::ceil(rect.maxX()) - left, std::ceil(rect.maxY()) - top);
}

} // namespace

WebContext::WebContext(CommandBuffer& commands, CGFloat scale, const CGRect& area)
    : m_commands(commands)
{
    m_state.transform = CGAffineTransform::scale(scale, scale);
    m_commands.put(Command::save);
    m_commands.put(Command::transform);
    m_commands.put(m_used);
    m_commands.put(Command::clip);
    m_commands.put(pixelsAround(m_state.transform.apply(area)));
    m_commands.put(0.0);
}

WebContext::~WebContext()
{
    m_commands.put(Command::restore);
}

void WebContext::use(const CGAffineTransform& transform)
{
    if (transform == m_used)
        return;
    m_used = transform;
    m_commands.put(Command::transform);
    m_commands.put(transform);
}

void WebContext::restoreState()
{
    const int clips = m_state.clips;
    m_state = m_saved.back();
    m_saved.pop_back();
    for (int i = m_state.clips; i < clips; ++i)
        m_commands.put(Command::restore);
    // The page went back to the transform of then: it is told anew which one it needs.
    if (m_state.clips < clips) {
        m_used = m_state.transform;
        m_commands.put(Command::transform);
        m_commands.put(m_used);
    }
}

void WebContext::concatenate(const CGAffineTransform& transform)
{
    m_state.transform = transform.concatenated(m_state.transform);
}

void WebContext::putShape(Command command, const CGRect& rect, CGFloat cornerRadius)
{
    const CGFloat radius = limitedRadius(rect, cornerRadius);
    const bool onPixels = radius <= 0 && isUpright();
    use(onPixels ? CGAffineTransform::identity() : m_state.transform);
    m_commands.put(command);
    m_commands.put(onPixels ? wholePixels(m_state.transform.apply(rect)) : rect);
    m_commands.put(radius);
}

void WebContext::clip(const CGRect& rect, CGFloat cornerRadius)
{
    m_commands.put(Command::save);
    ++m_state.clips;
    putShape(Command::clip, rect.isEmpty() ? CGRect{} : rect, cornerRadius);
}

void WebContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    const CGColor painted = faded(color);
    if (rect.isEmpty() || painted.alpha <= 0)
        return;
    putShape(Command::fill, rect, cornerRadius);
    m_commands.put(painted);
}

void WebContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    if (rect.isEmpty() || gradient.colors.empty())
        return;
    putShape(Command::fillGradient, rect, cornerRadius);
    m_commands.put(static_cast<double>(gradient.colors.size()));
    for (std::size_t i = 0; i < gradient.colors.size(); ++i) {
        m_commands.put(std::clamp(gradient.locations[i], 0.0, 1.0));
        m_commands.put(faded(gradient.colors[i]));
    }
}

void WebContext::stroke(const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    if (rect.isEmpty() || lineWidth <= 0)
        return;
    use(m_state.transform);
    m_commands.put(Command::stroke);
    m_commands.put(rect.insetBy(lineWidth / 2, lineWidth / 2));
    m_commands.put(std::max(0.0, limitedRadius(rect, cornerRadius) - lineWidth / 2));
    m_commands.put(lineWidth);
    m_commands.put(faded(color));
}

void WebContext::drawShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    const CGColor painted = faded(color);
    if (rect.isEmpty() || painted.alpha <= 0)
        return;
    use(m_state.transform);
    m_commands.put(Command::shadow);
    m_commands.put(rect);
    m_commands.put(limitedRadius(rect, cornerRadius));
    m_commands.put(painted);
    const CGFloat scale = std::hypot(m_state.transform.a, m_state.transform.b);
    m_commands.put(offset.dx * scale);
    m_commands.put(offset.dy * scale);
    m_commands.put(std::max(0.0, blurRadius) * scale);
}

void WebContext::drawText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    const CGColor painted = faded(style.color);
    if (utf8.empty() || rect.isEmpty() || painted.alpha <= 0)
        return;
    CGAffineTransform transform = m_state.transform;
    if (isUpright()) {
        const CGPoint corner = transform.apply(rect.origin);
        transform.tx += std::round(corner.x) - corner.x;
        transform.ty += std::round(corner.y) - corner.y;
    }
    use(transform);
    m_commands.put(Command::text);
    m_commands.put(rect);
    m_commands.put(style.font.size);
    m_commands.put(style.font.bold ? 1.0 : 0.0);
    m_commands.put(static_cast<double>(style.alignment));
    m_commands.put(style.wraps ? 1.0 : 0.0);
    m_commands.put(painted);
    m_commands.put(std::string_view(style.font.family));
    m_commands.put(utf8);
}

void WebContext::drawImage(const CGImage& image, const CGRect& rect)
{
    if (rect.isEmpty())
        return;
    use(m_state.transform);
    m_commands.put(Command::image);
    m_commands.put(static_cast<double>(static_cast<const WebImage&>(image).number()));
    m_commands.put(rect);
    m_commands.put(std::clamp(m_state.alpha, 0.0, 1.0));
}

} // namespace velmorath
