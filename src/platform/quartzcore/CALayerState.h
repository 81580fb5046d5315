#pragma once

#include "CGAffineTransform.h"
#include "CGColor.h"
#include <optional>

namespace velmorath {

/// The rectangle casts it, in the layer's coordinates.
struct CAShadow {
    CGRect path;
    CGColor color;
    CGVector offset;
    CGFloat radius = 0;

    bool operator==(const CAShadow&) const = default;
};

/// All that a layer is beside its content and its sublayers: as it is set (the model), or as it is shown at
/// a moment.
struct CALayerState {
    CGRect bounds;
    /// The centre, in the superlayer's coordinates.
    CGPoint position;
    CGAffineTransform transform;
    CGFloat opacity = 1;
    CGColor backgroundColor{0, 0, 0, 0};
    /// How much of the content shows, the rest being what it was before a transition.
    CGFloat contentShare = 1;

    // What follows changes at once, in an animation too.
    bool isHidden = false;
    bool masksToBounds = false;
    CGFloat cornerRadius = 0;
    CGFloat borderWidth = 0;
    CGColor borderColor;
    std::optional<CAShadow> shadow;

    bool isVisible() const { return !isHidden && opacity > 0; }
    /// From the layer's coordinates to the superlayer's.
    CGAffineTransform toSuperlayer() const
    {
        return CGAffineTransform::translation(-bounds.midX(), -bounds.midY())
            .concatenated(transform)
            .concatenated(CGAffineTransform::translation(position.x, position.y));
    }
    /// What shadow, background, content and border can reach, in the layer's coordinates.
    CGRect drawnArea() const
    {
        if (!shadow)
            return bounds;
        const CGFloat reach = -2 * shadow->radius;
        return bounds.united(
            shadow->path.offsetBy(shadow->offset.dx, shadow->offset.dy).insetBy(reach, reach));
    }

    bool operator==(const CALayerState&) const = default;
};

} // namespace velmorath
