#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// One direction of a scroll view: where one coordinate of the content's offset can be. In points.
struct UIScrollRange {
    /// The last offset at which the view is full of content; the first is zero.
    CGFloat maximum = 0;
    /// The view's length in this direction, which is a page's too.
    CGFloat length = 0;
    /// The content gives way like rubber past its ends.
    bool bounces = true;

    CGFloat inside(CGFloat offset) const { return std::clamp(offset, 0.0, maximum); }
    bool isPastEnd(CGFloat offset) const { return offset < 0 || offset > maximum; }
    bool canMove() const { return bounces || maximum > 0; }

    /// Where the content is when the finger has moved it to `offset`.
    CGFloat stretched(CGFloat offset) const;
    /// Where the finger must have moved a content that is here.
    CGFloat unstretched(CGFloat offset) const;

    /// The page that a content comes to rest at when it is let go here, with a speed in points a second:
    /// the nearest one or, after a flick, the next one in its direction.
    CGFloat pageAfter(CGFloat offset, CGFloat velocity) const;
    /// The least move from here that brings a stretch of the content into sight.
    CGFloat showing(CGFloat offset, CGFloat from, CGFloat to) const;
};

} // namespace velmorath
