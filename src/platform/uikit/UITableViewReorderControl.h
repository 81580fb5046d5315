#pragma once

#include "UIView.h"

namespace velmorath {

class UITableViewCell;

/// The handle of a row in reordering mode: three lines to grip. The drag itself is the table's.
class UITableViewReorderControl : public UIView {
public:
    /// In points, wide enough for a thumb.
    static constexpr CGFloat width = 50;

    UITableViewReorderControl();

    void gestureEnded() override;

protected:
    void draw(CGContext&) const override;

private:
    /// Nothing when the handle was taken away under the finger.
    UITableViewCell* cell() const;
    void handleGrip(UIGestureRecognizer&);
};

} // namespace velmorath
