#pragma once

#include "CALayer.h"

namespace velmorath {

/// A layer filled with colours that pass into each other from its top to its bottom.
class CAGradientLayer : public CALayer {
public:
    const CGGradient& gradient() const { return m_gradient; }
    void setGradient(CGGradient);

protected:
    void drawContent(CGContext&, const CALayerState&) const override;

private:
    CGGradient m_gradient;
};

} // namespace velmorath
