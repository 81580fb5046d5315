#include "UIButton.h"

namespace velmorath {

void UIButton::setTitle(std::string title)
{
    m_title = std::move(title);
    setNeedsDisplay();
}

void UIButton::setTitleColor(const CGColor& color)
{
    m_style.color = color;
    setNeedsDisplay();
}

void UIButton::setFont(const CGFont& font)
{
    m_style.font = font;
    setNeedsDisplay();
}

void UIButton::setImage(std::shared_ptr<UIImage> image)
{
    m_image = std::move(image);
    setNeedsDisplay();
}

void UIButton::setHighlightedBackgroundImage(std::shared_ptr<UIImage> image)
{
    m_highlightedBackgroundImage = std::move(image);
    setNeedsDisplay();
}

std::optional<UIAccessibilityInfo> UIButton::accessibilityInfo()
{
    std::optional<UIAccessibilityInfo> info = UIControl::accessibilityInfo();
    if (info->label.empty())
        info->label = m_title;
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
    if (m_image) {
        const CGSize size = m_image->size();
        context.drawImage(m_image->cgImage(),
            CGRectMake(bounds().midX() - size.width / 2, bounds().midY() - size.height / 2, size.width,
                size.height));
    }
    if (!m_title.empty())
        context.drawText(m_title, bounds(), m_style);
    context.restoreState();
}

} // namespace velmorath
