#pragma once

#include "UIImage.h"
#include "UIView.h"

namespace velmorath {

/// Shows a whole picture in the middle, as large as fits without bending it.
class UIImageView : public UIView {
public:
    using UIView::UIView;

    void setImage(std::shared_ptr<UIImage> image) { setDrawn(m_image, std::move(image)); }

    /// What the picture says of itself. Without a label it is only there to be looked at.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

protected:
    void draw(CGContext&) const override;

private:
    std::shared_ptr<UIImage> m_image;
};

} // namespace velmorath
