#include "UILabel.h"
#include "Host.h"

namespace velmorath {

std::optional<UIAccessibilityInfo> UILabel::accessibilityInfo()
{
    const std::string& words = accessibilityLabel().empty() ? m_text : accessibilityLabel();
    if (words.empty())
        return {};
    return UIAccessibilityInfo{
        {.role = m_heading ? AccessibilityRole::heading : AccessibilityRole::text, .label = words}};
}

CGFloat UILabel::heightFitting(CGFloat width) const
{
    return Host::current().screen().measure(m_text, m_style.font, m_style.wraps ? width : 0).size.height;
}

CGTextStyle UILabel::fittingStyle() const
{
    CGTextStyle style = m_style;
    if (m_minimumScaleFactor >= 1)
        return style;
    const auto width = [&] { return Host::current().screen().measure(m_text, style.font).size.width; };
    const CGFloat room = bounds().size.width;
    const CGFloat least = m_minimumScaleFactor * style.font.size;
    if (width() > room)
        style.font.size = std::max(least, style.font.size * room / width());
    // Machines have fonts of whole sizes, and may take the next larger one.
    while (style.font.size > least && width() > room)
        style.font.size = std::max(least, std::ceil(style.font.size) - 1);
    return style;
}

void UILabel::draw(CGContext& context) const
{
    context.drawText(m_text, bounds(), fittingStyle());
}

std::function<void(CGContext&)> UILabel::keptDrawing() const
{
    return [text = m_text, rect = bounds(), style = fittingStyle()](
               CGContext& context) { context.drawText(text, rect, style); };
}

} // namespace velmorath
