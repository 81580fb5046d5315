#include "UIImageView.h"

namespace velmorath {

std::optional<UIAccessibilityInfo> UIImageView::accessibilityInfo()
{
    if (!m_image || m_image->accessibilityLabel().empty())
        return {};
    return UIAccessibilityInfo{.role = AccessibilityRole::image, .label = m_image->accessibilityLabel()};
}

void UIImageView::draw(CGContext& context) const
{
    if (!m_image)
        return;
    const CGSize size = m_image->size();
    if (size.width <= 0 || size.height <= 0)
        return;
    const CGRect& area = bounds();
    const CGFloat scale = std::min(area.size.width / size.width, area.size.height / size.height);
    const CGSize fitted{size.width * scale, size.height * scale};
    context.drawImage(m_image->cgImage(),
        CGRectMake(
            area.midX() - fitted.width / 2, area.midY() - fitted.height / 2, fitted.width, fitted.height));
}

} // namespace velmorath
