#include "CARenderer.h"
#include <algorithm>

namespace velmorath {

void CARenderer::collect(CALayer& layer, double time, const CGAffineTransform& parent, CGFloat opacity,
    const CGRect& clip, Frame& frame)
{
    layer.dropFinishedAnimations(time);
    const CALayerState shown = layer.presented(time);
    if (!shown.isVisible())
        return;
    const CGAffineTransform toScreen = shown.toSuperlayer().concatenated(parent);
    const CGFloat totalOpacity = opacity * shown.opacity;
    const CGRect area = toScreen.apply(shown.drawnArea()).intersected(clip);
    if (!area.isEmpty())
        frame.emplace(
            layer.identity(), Shown{layer.version(), shown, toScreen, totalOpacity, area, frame.size()});

    const CGRect innerClip = shown.masksToBounds ? clip.intersected(toScreen.apply(shown.bounds)) : clip;
    if (innerClip.isEmpty())
        return;
    for (const auto& sublayer : layer.sublayers())
        collect(*sublayer, time, toScreen, totalOpacity, innerClip, frame);
}

CGRect CARenderer::update(CALayer& root, double time, const CGRect& screen)
{
    Frame frame;
    frame.reserve(m_lastFrame.size() + 16);
    collect(root, time, CGAffineTransform::identity(), 1, screen, frame);

    CGRect damage = CGRect::null();
    std::vector<const Shown*> inOrder(frame.size());
    for (const auto& [identity, shown] : frame) {
        inOrder[shown.order] = nullptr;
        const auto before = m_lastFrame.find(identity);
        if (before == m_lastFrame.end()) {
            damage = damage.united(shown.area);
            continue;
        }
        inOrder[shown.order] = &before->second;
        if (!shown.looksLike(before->second))
            damage = damage.united(shown.area).united(before->second.area);
    }
    for (const auto& [identity, shown] : m_lastFrame) {
        if (!frame.contains(identity))
            damage = damage.united(shown.area);
    }
    // Layers that only changed places with each other.
    std::size_t highest = 0;
    for (const Shown* before : inOrder) {
        if (!before)
            continue;
        if (before->order < highest)
            damage = damage.united(before->area);
        highest = std::max(highest, before->order);
    }

    m_lastFrame = std::move(frame);
    return damage.isEmpty() ? CGRect::null() : damage.intersected(screen);
}

void CARenderer::draw(const CALayer& layer, double time, CGContext& context, const CGRect& area)
{
    const CALayerState shown = layer.presented(time);
    if (!shown.isVisible())
        return;
    const CGAffineTransform toParent = shown.toSuperlayer();
    const CGRect areaInside = toParent.inverted().apply(area);
    const bool drawsItself = shown.drawnArea().intersects(areaInside);
    if (shown.masksToBounds && !drawsItself)
        return;

    context.saveState();
    context.concatenate(toParent);
    context.multiplyAlpha(shown.opacity);
    if (drawsItself)
        layer.drawBehindSublayers(context, shown);
    if (!layer.sublayers().empty()) {
        if (shown.masksToBounds) {
            context.saveState();
            context.clip(shown.bounds, shown.cornerRadius);
        }
        for (const auto& sublayer : layer.sublayers())
            draw(*sublayer, time, context, areaInside);
        if (shown.masksToBounds)
            context.restoreState();
    }
    if (drawsItself)
        context.stroke(shown.bounds, shown.cornerRadius, shown.borderWidth, shown.borderColor);
    context.restoreState();
}

} // namespace velmorath
