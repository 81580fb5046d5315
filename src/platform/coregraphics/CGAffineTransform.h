#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// x' = a x + c y + tx,  y' = b x + d y + ty
struct CGAffineTransform {
    CGFloat a = 1;
    CGFloat b = 0;
    CGFloat c = 0;
    CGFloat d = 1;
    CGFloat tx = 0;
    CGFloat ty = 0;

    static CGAffineTransform identity() { return {}; }
    static CGAffineTransform translation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }
    static CGAffineTransform scale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }

    /// Upright rectangles stay upright.
    bool isUpright() const { return b == 0 && c == 0; }

    /// First this transform, then the other.
    CGAffineTransform concatenated(const CGAffineTransform& then) const;

    /// A transform that cannot be undone (a scale to nothing) has the identity as its inverse.
    CGAffineTransform inverted() const;

    CGPoint apply(CGPoint point) const
    {
        return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
    }

    /// The smallest upright rectangle around the transformed one.
    CGRect apply(const CGRect& rect) const;

    bool operator==(const CGAffineTransform&) const = default;
};

} // namespace velmorath
