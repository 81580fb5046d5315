#pragma once

#include "CAAnimation.h"
#include "CALayerState.h"
#include "CATimeline.h"
#include "CGContext.h"
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace velmorath {

/// Draws what is inside a layer: a view draws its text or picture this way.
class CALayerDelegate {
public:
    virtual ~CALayerDelegate() = default;

    /// In the layer's own coordinates. The background is drawn already; sublayers come after.
    virtual void draw(CGContext&) const { }

    /// What draw() draws just now, to be drawn when the content has changed already, and without the
    /// delegate; nothing when it cannot be kept.
    virtual std::function<void(CGContext&)> keptDrawing() const { return {}; }
};

/// The content fades from what it was into what it becomes, slow at both ends. Seconds.
struct CATransition {
    double duration = 0.25;
};

/// A rectangle that draws: shadow, background, its own content, sublayers in order, border. Setters
/// change the model at once; inside an animation block what is shown follows over time, from where it
/// is shown now; setting what is set already changes nothing, a running animation included. A layer is owned
/// by its superlayer and by whoever made it.
class CALayer : public std::enable_shared_from_this<CALayer> {
public:
    CALayer() = default;
    /// A new layer that looks like the other one; it has no sublayers, no superlayer and no delegate.
    CALayer(const CALayer& other)
        : std::enable_shared_from_this<CALayer>()
        , m_model(other.m_model)
    {
    }
    virtual ~CALayer();
    CALayer& operator=(const CALayer&) = delete;

    /// As it is set.
    const CALayerState& model() const { return m_model; }
    const CGRect& bounds() const { return m_model.bounds; }
    void setBounds(const CGRect& bounds) { move(&CALayerState::bounds, bounds); }
    CGPoint position() const { return m_model.position; }
    void setPosition(CGPoint position) { move(&CALayerState::position, position); }
    const CGAffineTransform& transform() const { return m_model.transform; }
    void setTransform(const CGAffineTransform& transform) { move(&CALayerState::transform, transform); }
    /// Derived from position, bounds and transform. Setting it keeps the transform.
    CGRect frame() const { return m_model.toSuperlayer().apply(m_model.bounds); }
    void setFrame(const CGRect&);

    CGFloat opacity() const { return m_model.opacity; }
    void setOpacity(CGFloat opacity) { move(&CALayerState::opacity, opacity); }
    const CGColor& backgroundColor() const { return m_model.backgroundColor; }
    void setBackgroundColor(const CGColor& color) { move(&CALayerState::backgroundColor, color); }

    bool isHidden() const { return m_model.isHidden; }
    void setHidden(bool hidden) { change(&CALayerState::isHidden, hidden); }
    CGFloat cornerRadius() const { return m_model.cornerRadius; }
    void setCornerRadius(CGFloat radius) { change(&CALayerState::cornerRadius, radius); }
    void setBorder(CGFloat width, const CGColor& color)
    {
        change(&CALayerState::borderWidth, width);
        change(&CALayerState::borderColor, color);
    }
    /// Sublayers are cut off at the bounds, corners included.
    bool masksToBounds() const { return m_model.masksToBounds; }
    void setMasksToBounds(bool masks) { change(&CALayerState::masksToBounds, masks); }
    void setShadow(std::optional<CAShadow> shadow) { change(&CALayerState::shadow, shadow); }

    const std::vector<std::shared_ptr<CALayer>>& sublayers() const { return m_sublayers; }
    void addSublayer(std::shared_ptr<CALayer> layer) { insertSublayer(std::move(layer), m_sublayers.size()); }
    /// An index beyond the end means the end. A layer that is somewhere else already moves.
    void insertSublayer(std::shared_ptr<CALayer>, std::size_t index);
    void removeFromSuperlayer();

    void setDelegate(CALayerDelegate* delegate) { m_delegate = delegate; }

    /// Makes the next change of the content a transition.
    void addTransition(const CATransition&);

    /// What this layer draws changed: it is drawn again with the next frame.
    void setNeedsDisplay();

    /// What is shown at a moment of the timeline.
    CALayerState presented(double time) const;
    /// Forgets what only counted before that moment.
    void dropFinishedAnimations(double time);

    /// Stands for this layer and the state of its content, never reused.
    std::uint64_t identity() const { return m_identity; }
    std::uint64_t version() const { return m_version; }

    /// Shadow, background and content, in the layer's coordinates.
    void drawBehindSublayers(CGContext&, const CALayerState& shown) const;

protected:
    /// For layers that fill themselves with more than a colour.
    virtual void drawContent(CGContext&, const CALayerState&) const { }

private:
    using Animation = std::variant<CAAnimation<CGFloat>, CAAnimation<CGPoint>, CAAnimation<CGRect>,
        CAAnimation<CGAffineTransform>, CAAnimation<CGColor>>;

    /// Sets a part of the model, which shows at once.
    template <typename T> void change(T CALayerState::*member, const T& value);
    /// Sets a part of the model; what is shown follows as the timeline says.
    template <typename T> void move(T CALayerState::*member, const T& value);
    template <typename T> void removeAnimationsOf(T CALayerState::*member);
    static void requestFrame();

    inline static std::uint64_t s_lastIdentity = 0;

    CALayerState m_model;
    std::vector<Animation> m_animations;
    std::vector<std::shared_ptr<CALayer>> m_sublayers;
    CALayer* m_superlayer = nullptr;
    CALayerDelegate* m_delegate = nullptr;
    std::function<void(CGContext&)> m_contentBefore;
    std::uint64_t m_identity = ++s_lastIdentity;
    std::uint64_t m_version = 0;
};

template <typename T> void CALayer::change(T CALayerState::*member, const T& value)
{
    if (m_model.*member == value)
        return;
    m_model.*member = value;
    requestFrame();
}

template <typename T> void CALayer::move(T CALayerState::*member, const T& value)
{
    if (m_model.*member == value)
        return;
    const CATimeline& timeline = CATimeline::main();
    const T shown = presented(timeline.frameTime()).*member;
    removeAnimationsOf(member);
    change(member, value);
    const std::optional<CAAnimationTiming>& timing = timeline.animating();
    if (timing && timing->duration > 0 && shown != value)
        m_animations.push_back(CAAnimation<T>{member, shown, value, timing->begin, timing->duration});
}

template <typename T> void CALayer::removeAnimationsOf(T CALayerState::*member)
{
    std::erase_if(m_animations, [&](const Animation& animation) {
        const auto* ofThisKind = std::get_if<CAAnimation<T>>(&animation);
        return ofThisKind && ofThisKind->member == member;
    });
}

} // namespace velmorath
