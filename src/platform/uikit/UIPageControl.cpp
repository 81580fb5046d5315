#include "UIPageControl.h"
#include "Bundle.h"

namespace velmorath {

namespace {

constexpr CGFloat dotSize = 7;
constexpr CGFloat dotDistance = 16;
constexpr CGFloat height = 37;

} // namespace

void UIPageControl::setNumberOfPages(int pages)
{
    setDrawn(m_numberOfPages, pages);
    setCurrentPage(m_currentPage);
}

void UIPageControl::setCurrentPage(std::int64_t page)
{
    setDrawn(m_currentPage, std::clamp<std::int64_t>(page, 0, std::max(0, m_numberOfPages - 1)));
}

CGFloat UIPageControl::rowWidth() const
{
    return m_numberOfPages > 0 ? dotSize + (m_numberOfPages - 1) * dotDistance : 0;
}

void UIPageControl::sizeToFit()
{
    setFrame({frame().origin, {rowWidth(), height}});
}

std::optional<UIAccessibilityInfo> UIPageControl::accessibilityInfo()
{
    return UIAccessibilityInfo{{.role = AccessibilityRole::text,
        .label = Bundle::main().localizedString(
            "Page %1 of %2", {std::to_string(m_currentPage + 1), std::to_string(m_numberOfPages)})}};
}

void UIPageControl::draw(CGContext& context) const
{
    const CGFloat left = bounds().midX() - rowWidth() / 2;
    const CGFloat top = bounds().midY() - dotSize / 2;
    for (int page = 0; page < m_numberOfPages; ++page) {
        context.fill(CGRectMake(left + page * dotDistance, top, dotSize, dotSize), dotSize / 2,
            page == m_currentPage ? m_currentTintColor : m_tintColor);
    }
}

} // namespace velmorath
