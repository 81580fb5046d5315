#pragma once

#include "CALayer.h"

namespace velmorath {

/// A layer filled with colours that pass into each other from its top to its bottom.
class CAGradientLayer : public CALayer {
public:
    void setGradient(CGGradient);

protected:
    void drawContent(CGContext&, const CALayerState&) const override;

private:
    CGGradient m_gradient;
};

} // namespace velmorath
