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
    void setTitle(std::string title) { setDrawn(m_title, std::move(title)); }
    void setTitleColor(const CGColor& color) { setDrawn(m_style.color, color); }
    void setFont(const CGFont& font) { setDrawn(m_style.font, font); }
    /// Where in the button its title stands; otherwise in the middle.
    void setContentHorizontalAlignment(CGTextAlignment alignment) { setDrawn(m_style.alignment, alignment); }
    void setImage(std::shared_ptr<UIImage> image) { setDrawn(m_image, std::move(image)); }
    /// Fills the button behind its title while it is held down.
    void setHighlightedBackgroundImage(std::shared_ptr<UIImage> image)
    {
        setDrawn(m_highlightedBackgroundImage, std::move(image));
    }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

protected:
    void draw(CGContext&) const override;

private:
    std::string m_title;
    CGTextStyle m_style{UIFont::systemFont(17), UIColor::white(), CGTextAlignment::center, false};
    std::shared_ptr<UIImage> m_image;
    std::shared_ptr<UIImage> m_highlightedBackgroundImage;
};

} // namespace velmorath
