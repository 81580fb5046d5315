#pragma once

#include "UIGestureRecognizer.h"

namespace velmorath {

/// Two fingers that move apart or together. Two fingers down before any other gesture began are its
/// own at once; it begins when their distance has changed a little.
class UIPinchGestureRecognizer : public UIGestureRecognizer {
public:
    void touchesBegan(const UITouches&) override;
    void touchesMoved(const UITouches&) override;

    bool claimsTouches() const override { return numberOfTouches() == 2 && state() == State::possible; }

private:
    CGFloat distance() const;

    CGFloat m_initialDistance = 0;
};

} // namespace velmorath
