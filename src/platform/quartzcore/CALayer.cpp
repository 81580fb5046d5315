#include "CALayer.h"
#include "CATimeline.h"
#include "Host.h"
#include <algorithm>

namespace velmorath {

CALayer::~CALayer()
{
    for (const auto& sublayer : m_sublayers)
        sublayer->m_superlayer = nullptr;
}

void CALayer::setFrame(const CGRect& frame)
{
    // A frame that is nowhere leaves the layer without extent where it stands.
    const CGRect target = frame.isNull() ? CGRect{} : frame;
    const CGAffineTransform& t = m_model.transform;
    const CGSize size{t.a == 0 ? 0 : target.size.width / std::fabs(t.a),
        t.d == 0 ? 0 : target.size.height / std::fabs(t.d)};
    setBounds({m_model.bounds.origin, size});
    setPosition({target.midX() - t.tx, target.midY() - t.ty});
}

void CALayer::insertSublayer(std::shared_ptr<CALayer> layer, std::size_t index)
{
    layer->removeFromSuperlayer();
    layer->m_superlayer = this;
    index = std::min(index, m_sublayers.size());
    m_sublayers.insert(m_sublayers.begin() + static_cast<std::ptrdiff_t>(index), std::move(layer));
    setNeedsDisplay();
}

void CALayer::removeFromSuperlayer()
{
    if (!m_superlayer)
        return;
    CALayer& parent = *m_superlayer;
    m_superlayer = nullptr;
    const std::shared_ptr<CALayer> keepAlive = shared_from_this();
    std::erase(parent.m_sublayers, keepAlive);
    parent.setNeedsDisplay();
}

void CALayer::addTransition(const CATransition& transition)
{
    removeAnimationsOf(&CALayerState::contentShare);
    m_contentBefore = nullptr;
    if (transition.duration <= 0 || !m_delegate)
        return;
    m_contentBefore = m_delegate->keptDrawing();
    const double now = Host::current().clock().now();
    m_animations.emplace_back(
        CAAnimation<CGFloat>{&CALayerState::contentShare, 0, 1, now, transition.duration});
    CATimeline::main().keepRunningUntil(now + transition.duration);
}

void CALayer::requestFrame()
{
    Host::current().screen().requestFrame();
}

void CALayer::setNeedsDisplay()
{
    ++m_version;
    requestFrame();
}

CALayerState CALayer::presented(double time) const
{
    if (m_animations.empty() || Host::current().screen().reducesMotion())
        return m_model;
    CALayerState shown = m_model;
    for (const Animation& animation : m_animations)
        std::visit([&](const auto& known) { known.show(shown, time); }, animation);
    return shown;
}

void CALayer::dropFinishedAnimations(double time)
{
    if (m_animations.empty())
        return;
    std::erase_if(m_animations, [time](const Animation& animation) {
        return std::visit([time](const auto& known) { return known.isOver(time); }, animation);
    });
    if (presented(time).contentShare >= 1)
        m_contentBefore = nullptr;
}

void CALayer::drawBehindSublayers(CGContext& context, const CALayerState& shown) const
{
    if (const auto& shadow = shown.shadow)
        context.drawShadow(shadow->path, shown.cornerRadius, shadow->color, shadow->offset, shadow->radius);
    context.fill(shown.bounds, shown.cornerRadius, shown.backgroundColor);
    drawContent(context, shown);
    if (m_contentBefore) {
        context.saveState();
        context.multiplyAlpha(1 - shown.contentShare);
        m_contentBefore(context);
        context.restoreState();
    }
    context.saveState();
    if (m_contentBefore)
        context.multiplyAlpha(shown.contentShare);
    if (m_delegate)
        m_delegate->draw(context);
    context.restoreState();
}

} // namespace velmorath
