#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmorath {

/// Lengths and coordinates are in points; the origin is the top left corner and y grows downwards.
using CGFloat = double;

struct CGPoint {
    CGFloat x = 0;
    CGFloat y = 0;

    bool operator==(const CGPoint&) const = default;
};

struct CGVector {
    CGFloat dx = 0;
    CGFloat dy = 0;

    bool operator==(const CGVector&) const = default;
};

struct CGSize {
    CGFloat width = 0;
    CGFloat height = 0;

    bool operator==(const CGSize&) const = default;
};

inline CGPoint operator+(CGPoint point, CGVector by)
{
    return {point.x + by.dx, point.y + by.dy};
}

inline CGVector operator-(CGPoint to, CGPoint from)
{
    return {to.x - from.x, to.y - from.y};
}

/// A rectangle. Width and height are never negative, except in the null rectangle, which stands for
/// "nowhere": it contains nothing and is the neutral element of united().
struct CGRect {
    CGPoint origin;
    CGSize size;

    static CGRect null()
    {
        const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
        return {{infinity, infinity}, {0, 0}};
    }

    static CGRect around(CGPoint center, CGSize size)
    {
        return {{center.x - size.width / 2, center.y - size.height / 2}, size};
    }

    static CGRect fromEdges(CGFloat left, CGFloat top, CGFloat right, CGFloat bottom)
    {
        return {{left, top}, {right - left, bottom - top}};
    }

    CGFloat minX() const { return origin.x; }
    CGFloat minY() const { return origin.y; }
    CGFloat midX() const { return origin.x + size.width / 2; }
    CGFloat midY() const { return origin.y + size.height / 2; }
    CGFloat maxX() const { return origin.x + size.width; }
    CGFloat maxY() const { return origin.y + size.height; }
    CGPoint center() const { return {midX(), midY()}; }

    bool isNull() const { return std::isinf(origin.x) || std::isinf(origin.y); }
    bool isEmpty() const { return isNull() || size.width <= 0 || size.height <= 0; }

    /// The left and top edges belong to the rectangle, the right and bottom ones do not.
    bool contains(CGPoint point) const
    {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }

    bool intersects(const CGRect& other) const { return !intersected(other).isEmpty(); }

    /// The null rectangle when the two do not meet.
    CGRect intersected(const CGRect& other) const
    {
        const CGFloat left = std::max(minX(), other.minX());
        const CGFloat top = std::max(minY(), other.minY());
        const CGFloat right = std::min(maxX(), other.maxX());
        const CGFloat bottom = std::min(maxY(), other.maxY());
        if (isNull() || other.isNull() || right < left || bottom < top)
            return null();
        return fromEdges(left, top, right, bottom);
    }

    /// The smallest rectangle around both.
    CGRect united(const CGRect& other) const
    {
        if (isNull() || other.isNull())
            return isNull() ? other : *this;
        return fromEdges(std::min(minX(), other.minX()), std::min(minY(), other.minY()),
            std::max(maxX(), other.maxX()), std::max(maxY(), other.maxY()));
    }

    CGRect offsetBy(CGFloat dx, CGFloat dy) const { return {{origin.x + dx, origin.y + dy}, size}; }

    /// Smaller by dx at the left and the right and by dy at the top and the bottom; negative values grow.
    CGRect insetBy(CGFloat dx, CGFloat dy) const
    {
        return {{origin.x + dx, origin.y + dy},
            {std::max(0.0, size.width - 2 * dx), std::max(0.0, size.height - 2 * dy)}};
    }

    bool operator==(const CGRect&) const = default;
};

/// Of two corners: one reads from top to bottom, and from left to right.
inline bool isReadBefore(CGPoint a, CGPoint b)
{
    return a.y != b.y ? a.y < b.y : a.x < b.x;
}

inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
{
    return {{x, y}, {width, height}};
}

} // namespace velmorath
