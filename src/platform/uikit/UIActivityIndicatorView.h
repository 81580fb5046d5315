#pragma once

#include "CADisplayLink.h"
#include "UIView.h"

namespace velmorath {

/// A large wheel of spokes that turns as long as something is going on, and is hidden otherwise. It costs
/// frames only while it turns in a window.
class UIActivityIndicatorView : public UIView {
public:
    explicit UIActivityIndicatorView(const CGRect& frame);

    void setColor(const CGColor& color) { setDrawn(m_color, color); }
    void startAnimating() { setAnimating(true); }
    void stopAnimating() { setAnimating(false); }

    void didMoveToWindow() override { startOrStopTurning(); }
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

protected:
    void draw(CGContext&) const override;

private:
    void setAnimating(bool);
    void startOrStopTurning();

    CGColor m_color = UIColor::white();
    /// The darkest spoke, counted clockwise from the top.
    int m_spoke = 0;
    CADisplayLink m_turning;
};

} // namespace velmorath
