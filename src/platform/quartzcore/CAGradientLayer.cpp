#include "CAGradientLayer.h"

namespace velmorath {

void CAGradientLayer::setGradient(CGGradient gradient)
{
    m_gradient = std::move(gradient);
    setNeedsDisplay();
}

void CAGradientLayer::drawContent(CGContext& context, const CALayerState& shown) const
{
    if (!m_gradient.colors.empty())
        context.fill(shown.bounds, shown.cornerRadius, m_gradient);
}

} // namespace velmorath
