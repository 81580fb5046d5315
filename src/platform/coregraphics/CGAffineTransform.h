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
    CGAffineTransform concatenated(const CGAffineTransform& then) const
    {
        return {a * then.a + b * then.c, a * then.b + b * then.d, c * then.a + d * then.c,
            c * then.b + d * then.d, tx * then.a + ty * then.c + then.tx,
            tx * then.b + ty * then.d + then.ty};
    }

    /// A transform that cannot be undone (a scale to nothing) has the identity as its inverse.
    CGAffineTransform inverted() const
    {
        const CGFloat determinant = a * d - b * c;
        if (determinant == 0)
            return identity();
        return {d / determinant, -b / determinant, -c / determinant, a / determinant,
            (c * ty - d * tx) / determinant, (b * tx - a * ty) / determinant};
    }

    CGPoint apply(CGPoint point) const
    {
        return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
    }

    /// The smallest upright rectangle around the transformed one.
    CGRect apply(const CGRect& rect) const
    {
        if (rect.isNull())
            return rect;
        const CGPoint corners[] = {apply(rect.origin), apply(CGPoint{rect.maxX(), rect.minY()}),
            apply(CGPoint{rect.minX(), rect.maxY()}), apply(CGPoint{rect.maxX(), rect.maxY()})};
        const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
        const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
        return CGRect::fromEdges(left, top, right, bottom);
    }

    bool operator==(const CGAffineTransform&) const = default;
};

} // namespace velmorath
