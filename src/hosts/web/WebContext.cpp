#include "WebContext.h"
#include "WebImage.h"
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
    : CGContext(CGAffineTransform::scale(scale, scale))
    , m_commands(commands)
{
    m_commands.put(Command::save);
    use(CGAffineTransform::identity());
    m_commands.put(Command::clip);
    m_commands.put(pixelsAround(transform().apply(area)));
    m_commands.put(0.0);
}

WebContext::~WebContext()
{
    m_commands.put(Command::restore);
}

void WebContext::use(const CGAffineTransform& transform)
{
    if (m_used == transform)
        return;
    m_used = transform;
    m_commands.put(Command::transform);
    m_commands.put(transform);
}

void WebContext::putShape(Command command, const CGRect& rect, CGFloat cornerRadius)
{
    const bool onPixels = cornerRadius <= 0 && transform().isUpright();
    use(onPixels ? CGAffineTransform::identity() : transform());
    m_commands.put(command);
    m_commands.put(onPixels ? wholePixels(transform().apply(rect)) : rect);
    m_commands.put(cornerRadius);
}

void WebContext::beginClip(const CGRect& rect, CGFloat cornerRadius)
{
    m_commands.put(Command::save);
    putShape(Command::clip, rect, cornerRadius);
}

void WebContext::endClip()
{
    m_commands.put(Command::restore);
    m_used.reset();
}

void WebContext::paintColor(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    putShape(Command::fill, rect, cornerRadius);
    m_commands.put(color);
}

void WebContext::paintGradient(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    putShape(Command::fillGradient, rect, cornerRadius);
    m_commands.put(static_cast<double>(gradient.colors.size()));
    for (std::size_t i = 0; i < gradient.colors.size(); ++i) {
        m_commands.put(gradient.locations[i]);
        m_commands.put(gradient.colors[i]);
    }
}

void WebContext::paintLine(const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    use(transform());
    m_commands.put(Command::stroke);
    m_commands.put(rect);
    m_commands.put(cornerRadius);
    m_commands.put(lineWidth);
    m_commands.put(color);
}

void WebContext::paintShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    use(transform());
    m_commands.put(Command::shadow);
    m_commands.put(rect);
    m_commands.put(cornerRadius);
    m_commands.put(color);
    const CGFloat scale = std::hypot(transform().a, transform().b);
    m_commands.put(offset.dx * scale);
    m_commands.put(offset.dy * scale);
    m_commands.put(blurRadius * scale);
}

void WebContext::paintText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    CGAffineTransform placed = transform();
    if (placed.isUpright()) {
        const CGPoint corner = placed.apply(rect.origin);
        placed.tx += std::round(corner.x) - corner.x;
        placed.ty += std::round(corner.y) - corner.y;
    }
    use(placed);
    m_commands.put(Command::text);
    m_commands.put(rect);
    m_commands.put(style.font.size);
    m_commands.put(style.font.bold ? 1.0 : 0.0);
    m_commands.put(static_cast<double>(style.alignment));
    m_commands.put(style.wraps ? 1.0 : 0.0);
    m_commands.put(style.color);
    m_commands.put(std::string_view(style.font.family));
    m_commands.put(utf8);
}

void WebContext::paintImage(const CGImage& image, const CGRect& rect, CGFloat alpha)
{
    use(transform());
    m_commands.put(Command::image);
    m_commands.put(static_cast<double>(static_cast<const WebImage&>(image).number()));
    m_commands.put(rect);
    m_commands.put(alpha);
}

} // namespace velmorath
