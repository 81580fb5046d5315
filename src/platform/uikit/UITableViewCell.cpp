#include "UITableViewCell.h"
#include "UITableViewReorderControl.h"

namespace velmorath {

namespace {

constexpr CGFloat textMargin = 15;

}

UITableViewCell::UITableViewCell(UITableViewCellStyle, std::string reuseIdentifier)
    : m_reuseIdentifier(std::move(reuseIdentifier))
    , m_textLabel(std::make_shared<UILabel>())
{
    addSubview(m_textLabel);
}

void UITableViewCell::setShowsReorderControl(bool shows)
{
    if (shows == static_cast<bool>(m_reorderControl))
        return;
    if (shows) {
        m_reorderControl = std::make_shared<UITableViewReorderControl>();
        addSubview(m_reorderControl);
    } else {
        m_reorderControl->removeFromSuperview();
        m_reorderControl.reset();
    }
    setNeedsLayout();
}

void UITableViewCell::layoutSubviews()
{
    const CGSize size = bounds().size;
    const CGFloat controlWidth = m_reorderControl ? UITableViewReorderControl::width : 0;
    m_textLabel->setFrame(
        CGRectMake(textMargin, 0, std::max(0.0, size.width - 2 * textMargin - controlWidth), size.height));
    if (m_reorderControl)
        m_reorderControl->setFrame(CGRectMake(size.width - controlWidth, 0, controlWidth, size.height));
}

} // namespace velmorath
