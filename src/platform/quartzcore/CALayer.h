#pragma once

#include "CGAffineTransform.h"
#include "CGColor.h"
#include "CGContext.h"
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmorath {

class CALayer;

/// Draws what is inside a layer: a view draws its text or picture this way.
class CALayerDelegate {
public:
    virtual ~CALayerDelegate() = default;

    /// In the layer's own coordinates. The background is drawn already; sublayers come after.
    virtual void drawLayer(const CALayer&, CGContext&) = 0;

    /// What drawLayer() draws just now, to be drawn when the content has changed already; nothing when
    /// it cannot be kept.
    virtual std::function<void(CGContext&)> keptLayerDrawing(const CALayer&) const { return {}; }
};

/// The content fades from what it was into what it becomes, slow at both ends. Seconds.
struct CATransition {
    double duration = 0.25;
};

/// What of a layer can move: as it is set (the model), or as it is shown at a moment.
struct CALayerGeometry {
    CGRect bounds;
    CGPoint position;
    CGAffineTransform transform;
    CGFloat opacity = 1;
    CGColor backgroundColor{0, 0, 0, 0};
    /// How much of the content shows, the rest being what it was before a transition.
    CGFloat contentShare = 1;

    bool operator==(const CALayerGeometry&) const = default;
};

/// A rectangle that draws: shadow, background, its own content, sublayers in order, border. Setters
/// change the model at once; inside an animation block what is shown follows over time, from where it
/// is shown now; setting what is set already changes nothing, a running animation included. A layer is owned
/// by its superlayer and by whoever made it.
class CALayer : public std::enable_shared_from_this<CALayer> {
public:
    CALayer();
    /// A new layer that looks like the other one; it has no sublayers, no superlayer and no delegate.
    CALayer(const CALayer& other);
    virtual ~CALayer();
    CALayer& operator=(const CALayer&) = delete;

    const CGRect& bounds() const { return m_model.bounds; }
    void setBounds(const CGRect&);
    /// The centre, in the superlayer's coordinates.
    CGPoint position() const { return m_model.position; }
    void setPosition(CGPoint);
    const CGAffineTransform& transform() const { return m_model.transform; }
    void setTransform(const CGAffineTransform&);
    /// Derived from position, bounds and transform. Setting it keeps the transform.
    CGRect frame() const;
    void setFrame(const CGRect&);

    CGFloat opacity() const { return m_model.opacity; }
    void setOpacity(CGFloat);
    const CGColor& backgroundColor() const { return m_model.backgroundColor; }
    void setBackgroundColor(const CGColor&);

    bool isHidden() const { return m_hidden; }
    void setHidden(bool);
    CGFloat cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(CGFloat);
    void setBorder(CGFloat width, const CGColor&);
    /// Sublayers are cut off at the bounds, corners included.
    bool masksToBounds() const { return m_masksToBounds; }
    void setMasksToBounds(bool);
    /// The rectangle that casts the shadow, in the layer's coordinates; without one there is no shadow.
    void setShadow(const CGRect& path, const CGColor&, CGVector offset, CGFloat radius);
    void removeShadow();
    const std::optional<CGRect>& shadowPath() const { return m_shadowPath; }

    const std::vector<std::shared_ptr<CALayer>>& sublayers() const { return m_sublayers; }
    CALayer* superlayer() const { return m_superlayer; }
    void addSublayer(std::shared_ptr<CALayer>);
    /// An index beyond the end means the end. A layer that is somewhere else already moves.
    void insertSublayer(std::shared_ptr<CALayer>, std::size_t index);
    void removeFromSuperlayer();

    void setDelegate(CALayerDelegate* delegate) { m_delegate = delegate; }

    /// Makes the next change of the content a transition.
    void addTransition(const CATransition&);

    /// What this layer draws changed: it is drawn again with the next frame.
    void setNeedsDisplay();

    /// What is shown at a moment of the timeline.
    CALayerGeometry presented(double time) const;
    /// From the superlayer's coordinates to this layer's, as things are at that moment.
    static CGAffineTransform toSuperlayer(const CALayerGeometry&);

    /// Stands for this layer and the state of its own drawing, never reused.
    std::uint64_t identity() const { return m_identity; }
    std::uint64_t version() const { return m_version; }

    /// Shadow, background and content, in the layer's coordinates.
    void drawBehindSublayers(CGContext&, const CALayerGeometry&) const;
    void drawBorder(CGContext&, const CALayerGeometry&) const;
    /// What the above can reach, in the layer's coordinates.
    CGRect drawnArea(const CALayerGeometry&) const;

protected:
    /// For layers that fill themselves with more than a colour.
    virtual void drawContent(CGContext&, const CALayerGeometry&) const { }

private:
    using Value = std::array<CGFloat, 6>;
    enum class Key { bounds, position, transform, opacity, backgroundColor, contentShare };
    struct Animation {
        Key key;
        Value from;
        double begin;
        double duration;
    };

    static Value value(const CALayerGeometry&, Key);
    static void setValue(CALayerGeometry&, Key, const Value&);
    void change(Key, const CALayerGeometry& newModel);
    template <typename T> void changeModel(Key, T CALayerGeometry::*part, const T& newValue);
    void drawOwnContent(CGContext&) const;
    template <typename T> void changeLook(T& member, const T& value);

    CALayerGeometry m_model;
    std::vector<Animation> m_animations;
    bool m_hidden = false;
    bool m_masksToBounds = false;
    CGFloat m_cornerRadius = 0;
    CGFloat m_borderWidth = 0;
    CGColor m_borderColor;
    std::optional<CGRect> m_shadowPath;
    CGColor m_shadowColor;
    CGVector m_shadowOffset;
    CGFloat m_shadowRadius = 0;
    std::vector<std::shared_ptr<CALayer>> m_sublayers;
    CALayer* m_superlayer = nullptr;
    CALayerDelegate* m_delegate = nullptr;
    std::function<void(CGContext&)> m_contentBefore;
    std::uint64_t m_identity;
    std::uint64_t m_version = 0;
};

} // namespace velmorath
