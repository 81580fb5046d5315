#include "UIButton.h"

namespace velmorath {

std::optional<UIAccessibilityInfo> UIButton::accessibilityInfo()
{
    std::optional<UIAccessibilityInfo> info = UIControl::accessibilityInfo();
    if (info->element.label.empty())
        info->element.label = m_title;
    return info;
}

void UIButton::draw(CGContext& context) const
{
    context.saveState();
    if (layer().masksToBounds())
        context.clip(bounds(), layer().cornerRadius());
    if (isHighlighted() && m_highlightedBackgroundImage)
        context.drawImage(m_highlightedBackgroundImage->cgImage(), bounds());
    if (isHighlighted())
        context.multiplyAlpha(0.4);
    if (m_image)
        context.drawImage(m_image->cgImage(), CGRect::around(bounds().center(), m_image->size()));
    context.drawText(m_title, bounds(), m_style);
    context.restoreState();
}

} // namespace velmorath
