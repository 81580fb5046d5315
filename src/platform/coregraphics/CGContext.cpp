#include "CGContext.h"

namespace velmorath {

namespace {

CGFloat limited(CGFloat radius, const CGRect& rect)
{
    return std::clamp(radius, 0.0, std::min(rect.size.width, rect.size.height) / 2);
}

bool shows(const CGRect& rect, const CGColor& color)
{
    return !rect.isEmpty() && CGColor::toByte(color.alpha) > 0;
}

} // namespace

void CGContext::restoreState()
{
    for (int clips = m_state.clips; clips > m_saved.back().clips; --clips)
        endClip();
    m_state = m_saved.back();
    m_saved.pop_back();
}

void CGContext::clip(const CGRect& rect, CGFloat cornerRadius)
{
    ++m_state.clips;
    const CGRect area = rect.isEmpty() ? CGRect{} : rect;
    beginClip(area, limited(cornerRadius, area));
}

void CGContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    const CGColor painted = faded(color);
    if (shows(rect, painted))
        paintColor(rect, limited(cornerRadius, rect), painted);
}

void CGContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    if (rect.isEmpty() || gradient.colors.empty())
        return;
    CGGradient painted = gradient;
    for (CGColor& color : painted.colors)
        color = faded(color);
    for (CGFloat& location : painted.locations)
        location = std::clamp(location, 0.0, 1.0);
    paintGradient(rect, limited(cornerRadius, rect), painted);
}

void CGContext::stroke(const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    const CGColor painted = faded(color);
    if (!shows(rect, painted) || lineWidth <= 0)
        return;
    const CGFloat half = lineWidth / 2;
    paintLine(
        rect.insetBy(half, half), std::max(0.0, limited(cornerRadius, rect) - half), lineWidth, painted);
}

void CGContext::drawShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    const CGColor painted = faded(color);
    if (shows(rect, painted))
        paintShadow(rect, limited(cornerRadius, rect), painted, offset, std::max(0.0, blurRadius));
}

void CGContext::drawText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    CGTextStyle painted = style;
    painted.color = faded(style.color);
    if (!utf8.empty() && shows(rect, painted.color))
        paintText(utf8, rect, painted);
}

void CGContext::drawImage(const CGImage& image, const CGRect& rect)
{
    if (!rect.isEmpty() && m_state.alpha > 0)
        paintImage(image, rect, m_state.alpha);
}

} // namespace velmorath
