#pragma once

#include "CALayer.h"

namespace velmorath {

/// A layer filled with colours that pass into each other from its top to its bottom.
class CAGradientLayer : public CALayer {
public:
    void setGradient(CGGradient gradient)
    {
        m_gradient = std::move(gradient);
        setNeedsDisplay();
    }

protected:
    void drawContent(CGContext& context, const CALayerState& shown) const override
    {
        context.fill(shown.bounds, shown.cornerRadius, m_gradient);
    }

private:
    CGGradient m_gradient;
};

} // namespace velmorath
