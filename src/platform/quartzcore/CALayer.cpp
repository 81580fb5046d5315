#include "CALayer.h"
#include "CATimeline.h"
#include "Host.h"
#include <algorithm>

namespace velmorath {

namespace {

std::uint64_t nextIdentity()
{
    static std::uint64_t s_last = 0;
    return ++s_last;
}

/// Slow at both ends.
double easeInOut(double progress)
{
    return progress * progress * (3 - 2 * progress);
}

} // namespace

CALayer::CALayer()
    : m_identity(nextIdentity())
{
}

CALayer::CALayer(const CALayer& other)
    : std::enable_shared_from_this<CALayer>()
    , m_model(other.m_model)
    , m_hidden(other.m_hidden)
    , m_masksToBounds(other.m_masksToBounds)
    , m_cornerRadius(other.m_cornerRadius)
    , m_borderWidth(other.m_borderWidth)
    , m_borderColor(other.m_borderColor)
    , m_shadowPath(other.m_shadowPath)
    , m_shadowColor(other.m_shadowColor)
    , m_shadowOffset(other.m_shadowOffset)
    , m_shadowRadius(other.m_shadowRadius)
    , m_identity(nextIdentity())
{
}

CALayer::~CALayer()
{
    for (const auto& sublayer : m_sublayers)
        sublayer->m_superlayer = nullptr;
}

CALayer::Value CALayer::value(const CALayerGeometry& geometry, Key key)
{
    switch (key) {
    case Key::bounds: {
        const CGRect& rect = geometry.bounds;
        return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
    }
    case Key::position:
        return {geometry.position.x, geometry.position.y};
    case Key::transform: {
        const CGAffineTransform& t = geometry.transform;
        return {t.a, t.b, t.c, t.d, t.tx, t.ty};
    }
    case Key::opacity:
        return {geometry.opacity};
    case Key::backgroundColor: {
        const CGColor& color = geometry.backgroundColor;
        return {color.red, color.green, color.blue, color.alpha};
    }
    case Key::contentShare:
        return {geometry.contentShare};
    }
    return {};
}

void CALayer::setValue(CALayerGeometry& geometry, Key key, const Value& v)
{
    switch (key) {
    case Key::bounds:
        geometry.bounds = CGRectMake(v[0], v[1], v[2], v[3]);
        break;
    case Key::position:
        geometry.position = {v[0], v[1]};
        break;
    case Key::transform:
        geometry.transform = {v[0], v[1], v[2], v[3], v[4], v[5]};
        break;
    case Key::opacity:
        geometry.opacity = v[0];
        break;
    case Key::backgroundColor:
        geometry.backgroundColor = {v[0], v[1], v[2], v[3]};
        break;
    case Key::contentShare:
        geometry.contentShare = v[0];
        break;
    }
}

void CALayer::change(Key key, const CALayerGeometry& newModel)
{
    if (m_model == newModel)
        return;
    const CATimeline& timeline = CATimeline::main();
    const std::optional<CAAnimationTiming>& timing = timeline.animating();
    const Value shown = value(presented(timeline.frameTime()), key);
    std::erase_if(m_animations, [&](const Animation& animation) { return animation.key == key; });
    m_model = newModel;
    if (timing && timing->duration > 0 && shown != value(newModel, key))
        m_animations.push_back({key, shown, timing->begin, timing->duration});
    Host::current().screen().requestFrame();
}

template <typename T> void CALayer::changeModel(Key key, T CALayerGeometry::*part, const T& newValue)
{
    CALayerGeometry model = m_model;
    model.*part = newValue;
    change(key, model);
}

void CALayer::setBounds(const CGRect& bounds)
{
    changeModel(Key::bounds, &CALayerGeometry::bounds, bounds);
}

void CALayer::setPosition(CGPoint position)
{
    changeModel(Key::position, &CALayerGeometry::position, position);
}

void CALayer::setTransform(const CGAffineTransform& transform)
{
    changeModel(Key::transform, &CALayerGeometry::transform, transform);
}

void CALayer::setOpacity(CGFloat opacity)
{
    changeModel(Key::opacity, &CALayerGeometry::opacity, opacity);
}

void CALayer::setBackgroundColor(const CGColor& color)
{
    changeModel(Key::backgroundColor, &CALayerGeometry::backgroundColor, color);
}

CGRect CALayer::frame() const
{
    return toSuperlayer(m_model).apply(m_model.bounds);
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

template <typename T> void CALayer::changeLook(T& member, const T& newValue)
{
    if (member == newValue)
        return;
    member = newValue;
    setNeedsDisplay();
}

void CALayer::setHidden(bool hidden)
{
    changeLook(m_hidden, hidden);
}

void CALayer::setCornerRadius(CGFloat radius)
{
    changeLook(m_cornerRadius, radius);
}

void CALayer::setBorder(CGFloat width, const CGColor& color)
{
    changeLook(m_borderWidth, width);
    changeLook(m_borderColor, color);
}

void CALayer::setMasksToBounds(bool masks)
{
    changeLook(m_masksToBounds, masks);
}

void CALayer::setShadow(const CGRect& path, const CGColor& color, CGVector offset, CGFloat radius)
{
    changeLook(m_shadowPath, std::optional(path));
    changeLook(m_shadowColor, color);
    changeLook(m_shadowOffset, offset);
    changeLook(m_shadowRadius, radius);
}

void CALayer::removeShadow()
{
    changeLook(m_shadowPath, std::optional<CGRect>());
}

void CALayer::addSublayer(std::shared_ptr<CALayer> layer)
{
    insertSublayer(std::move(layer), m_sublayers.size());
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
    m_contentBefore = m_delegate ? m_delegate->keptLayerDrawing(*this) : nullptr;
    std::erase_if(
        m_animations, [](const Animation& animation) { return animation.key == Key::contentShare; });
    if (transition.duration <= 0)
        return;
    const double now = Host::current().clock().now();
    m_animations.push_back({Key::contentShare, {0}, now, transition.duration});
    CATimeline::main().keepRunningUntil(now + transition.duration);
}

void CALayer::setNeedsDisplay()
{
    ++m_version;
    Host::current().screen().requestFrame();
}

CALayerGeometry CALayer::presented(double time) const
{
    CALayerGeometry shown = m_model;
    for (const Animation& animation : m_animations) {
        const double progress = (time - animation.begin) / animation.duration;
        if (progress >= 1)
            continue;
        const double eased = easeInOut(std::max(0.0, progress));
        const Value to = value(m_model, animation.key);
        Value between;
        for (std::size_t i = 0; i < between.size(); ++i)
            between[i] = animation.from[i] + (to[i] - animation.from[i]) * eased;
        setValue(shown, animation.key, between);
    }
    return shown;
}

CGAffineTransform CALayer::toSuperlayer(const CALayerGeometry& geometry)
{
    return CGAffineTransform::translation(-geometry.bounds.midX(), -geometry.bounds.midY())
        .concatenated(geometry.transform)
        .concatenated(CGAffineTransform::translation(geometry.position.x, geometry.position.y));
}

void CALayer::drawBehindSublayers(CGContext& context, const CALayerGeometry& shown) const
{
    if (m_shadowPath)
        context.drawShadow(*m_shadowPath, m_cornerRadius, m_shadowColor, m_shadowOffset, m_shadowRadius);
    if (shown.backgroundColor.alpha > 0)
        context.fill(shown.bounds, m_cornerRadius, shown.backgroundColor);
    drawContent(context, shown);
    if (!m_contentBefore || shown.contentShare >= 1) {
        drawOwnContent(context);
        return;
    }
    context.saveState();
    context.multiplyAlpha(1 - shown.contentShare);
    m_contentBefore(context);
    context.restoreState();
    context.saveState();
    context.multiplyAlpha(shown.contentShare);
    drawOwnContent(context);
    context.restoreState();
}

void CALayer::drawOwnContent(CGContext& context) const
{
    if (m_delegate)
        m_delegate->drawLayer(*this, context);
}

void CALayer::drawBorder(CGContext& context, const CALayerGeometry& shown) const
{
    if (m_borderWidth > 0)
        context.stroke(shown.bounds, m_cornerRadius, m_borderWidth, m_borderColor);
}

CGRect CALayer::drawnArea(const CALayerGeometry& shown) const
{
    CGRect area = shown.bounds;
    if (m_shadowPath) {
        const CGFloat reach = -2 * m_shadowRadius;
        area =
            area.united(m_shadowPath->offsetBy(m_shadowOffset.dx, m_shadowOffset.dy).insetBy(reach, reach));
    }
    return area;
}

} // namespace velmorath
