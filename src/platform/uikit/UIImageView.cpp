#include "UIImageView.h"

namespace velmorath {

std::optional<UIAccessibilityInfo> UIImageView::accessibilityInfo()
{
    if (!m_image || m_image->accessibilityLabel().empty())
        return {};
    return UIAccessibilityInfo{{.role = AccessibilityRole::image, .label = m_image->accessibilityLabel()}};
}

void UIImageView::draw(CGContext& context) const
{
    if (!m_image)
        return;
    const CGSize size = m_image->size();
    if (size.width <= 0 || size.height <= 0)
        return;
    const CGSize room = bounds().size;
    const CGFloat scale = std::min(room.width / size.width, room.height / size.height);
    context.drawImage(
        m_image->cgImage(), CGRect::around(bounds().center(), {size.width * scale, size.height * scale}));
}

} // namespace velmorath
