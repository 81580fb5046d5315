#pragma once

#include "UIView.h"

namespace velmorath {

/// The handle of a row in reordering mode: three lines to grip. The drag itself is the table's.
class UITableViewReorderControl : public UIView {
public:
    /// In points, wide enough for a thumb.
    static constexpr CGFloat width = 50;

    using UIView::UIView;

    bool keepsTouchesToItself() const override { return true; }

    void touchesBegan(const UITouches&) override;
    void touchesMoved(const UITouches&) override;
    void touchesEnded(const UITouches&) override;
    void touchesCancelled(const UITouches&) override;

protected:
    void draw(CGContext&) const override;
};

} // namespace velmorath
