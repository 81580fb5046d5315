#pragma once

#include "UIGestureRecognizer.h"

namespace velmorath {

/// One finger that comes down and leaves again at nearly the same place. Goes from possible to ended.
class UITapGestureRecognizer : public UIGestureRecognizer {
public:
    void touchesBegan(const UITouches&) override;
    void touchesMoved(const UITouches&) override;
    void touchesEnded(const UITouches&) override;

    CGPoint locationIn(const UIView& view) const { return locationOfTouch(0, view); }
};

} // namespace velmorath
