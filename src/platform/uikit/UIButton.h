#pragma once

#include "UIControl.h"
#include "UIFont.h"
#include "UIImage.h"
#include <string>

namespace velmorath {

/// A control with a title or a picture in its middle, which pales while it is held down.
class UIButton : public UIControl {
public:
    using UIControl::UIControl;

    const std::string& title() const { return m_title; }
    void setTitle(std::string);
    void setTitleColor(const CGColor&);
    void setFont(const CGFont&);
    void setImage(std::shared_ptr<UIImage>);
    /// Fills the button behind its title while it is held down.
    void setHighlightedBackgroundImage(std::shared_ptr<UIImage>);

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

protected:
    void draw(CGContext&) const override;
    void highlightChanged() override { setNeedsDisplay(); }

private:
    std::string m_title;
    CGTextStyle m_style{UIFont::systemFont(17), UIColor::white(), CGTextAlignment::center, false};
    std::shared_ptr<UIImage> m_image;
    std::shared_ptr<UIImage> m_highlightedBackgroundImage;
};

} // namespace velmorath
