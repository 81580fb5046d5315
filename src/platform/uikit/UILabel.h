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
    void setText(std::string);
    const CGColor& textColor() const { return m_style.color; }
    void setTextColor(const CGColor&);
    void setFont(const CGFont&);
    void setTextAlignment(CGTextAlignment);
    void setWraps(bool);

    /// How high the wrapped text stands in this width; in one line, how high a line is.
    CGFloat heightFitting(CGFloat width) const;

protected:
    void draw(CGContext&) const override;

private:
    std::string m_text;
    CGTextStyle m_style;
};

} // namespace velmorath
