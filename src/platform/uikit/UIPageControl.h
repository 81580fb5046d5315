#pragma once

#include "UIView.h"

namespace velmorath {

/// A row of dots, one for each page, of which one stands out.
class UIPageControl : public UIView {
public:
    using UIView::UIView;

    void setNumberOfPages(int);
    std::int64_t currentPage() const { return m_currentPage; }
    /// A page that does not exist means the nearest one.
    void setCurrentPage(std::int64_t);
    void setPageIndicatorTintColor(const CGColor& color) { setDrawn(m_tintColor, color); }
    void setCurrentPageIndicatorTintColor(const CGColor& color) { setDrawn(m_currentTintColor, color); }

    /// Takes the size that the dots need; the top left corner stays.
    void sizeToFit();

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

protected:
    void draw(CGContext&) const override;

private:
    CGFloat rowWidth() const;

    int m_numberOfPages = 0;
    std::int64_t m_currentPage = 0;
    CGColor m_tintColor = CGColor::gray(1, 0.3);
    CGColor m_currentTintColor = UIColor::white();
};

} // namespace velmorath
