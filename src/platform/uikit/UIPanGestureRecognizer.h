#pragma once

#include "UIGestureRecognizer.h"
#include <vector>

namespace velmorath {

/// One finger that moves. It begins once the finger has gone ten points; a second finger before that
/// makes it fail, one after that is ignored.
class UIPanGestureRecognizer : public UIGestureRecognizer {
public:
    void touchesBegan(const UITouches&) override;
    void touchesMoved(const UITouches&) override;
    void touchesEnded(const UITouches&) override;

    /// How far the finger has gone since it came down, in the view's coordinates.
    CGVector translationIn(const UIView&) const;
    /// Points a second over the last tenth of a second, in window coordinates.
    CGVector velocity() const;

protected:
    void reset() override { m_samples.clear(); }
    void recordSample();

private:
    struct Sample {
        CGPoint location;
        double time;
    };

    std::vector<Sample> m_samples;
};

} // namespace velmorath
