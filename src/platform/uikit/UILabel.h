#pragma once

#include "UIFont.h"
#include "UIView.h"
#include <string>

namespace velmorath {

/// Text that is only read. One line stands in the vertical middle and ends in an ellipsis where it is
/// too long.
class UILabel : public UIView {
public:
    using UIView::UIView;

    const std::string& text() const { return m_text; }
    void setText(std::string text) { setDrawn(m_text, std::move(text)); }
    const CGColor& textColor() const { return m_style.color; }
    void setTextColor(const CGColor& color) { setDrawn(m_style.color, color); }
    void setFont(const CGFont& font) { setDrawn(m_style.font, font); }
    void setTextAlignment(CGTextAlignment alignment) { setDrawn(m_style.alignment, alignment); }
    void setWraps(bool wraps) { setDrawn(m_style.wraps, wraps); }
    /// A line that is too long is drawn smaller, down to this part of its font's size, before it is cut
    /// off. 1 at first: never smaller.
    void setMinimumScaleFactor(CGFloat factor) { setDrawn(m_minimumScaleFactor, factor); }

    /// Whether it is the title of what comes below it.
    void setHeading(bool heading) { m_heading = heading; }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    /// How high the wrapped text stands in this width; in one line, how high a line is.
    CGFloat heightFitting(CGFloat width) const;

protected:
    void draw(CGContext&) const override;
    std::function<void(CGContext&)> keptDrawing() const override;

private:
    CGTextStyle fittingStyle() const;

    std::string m_text;
    CGTextStyle m_style;
    CGFloat m_minimumScaleFactor = 1;
    bool m_heading = false;
};

} // namespace velmorath
