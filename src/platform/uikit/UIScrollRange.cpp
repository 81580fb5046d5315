#include "UIScrollRange.h"

namespace velmorath {

namespace {

/// How much of a finger's way past the end the content still follows, at first.
constexpr CGFloat rubberStiffness = 0.55;
/// Points a second that make a flick.
constexpr CGFloat flickVelocity = 250;

/// The way that the content gives for a finger's way past the end; never more than the view's length.
CGFloat rubberBand(CGFloat way, CGFloat length)
{
    return length <= 0 ? 0 : (1 - 1 / (way * rubberStiffness / length + 1)) * length;
}

/// The finger's way for which the rubber gives this much.
CGFloat stretchedBy(CGFloat given, CGFloat length)
{
    return length <= 0 ? 0 : (1 / (1 - std::min(given / length, 0.99)) - 1) * length / rubberStiffness;
}

} // namespace

CGFloat UIScrollRange::stretched(CGFloat offset) const
{
    if (!bounces || !isPastEnd(offset))
        return inside(offset);
    return offset < 0 ? -rubberBand(-offset, length) : maximum + rubberBand(offset - maximum, length);
}

CGFloat UIScrollRange::unstretched(CGFloat offset) const
{
    if (!isPastEnd(offset))
        return offset;
    return offset < 0 ? -stretchedBy(-offset, length) : maximum + stretchedBy(offset - maximum, length);
}

CGFloat UIScrollRange::pageAfter(CGFloat offset, CGFloat velocity) const
{
    if (length <= 0)
        return inside(offset);
    CGFloat page = std::round(offset / length);
    if (velocity > flickVelocity)
        page = std::floor(offset / length) + 1;
    else if (velocity < -flickVelocity)
        page = std::ceil(offset / length) - 1;
    return inside(page * length);
}

CGFloat UIScrollRange::showing(CGFloat offset, CGFloat from, CGFloat to) const
{
    if (from < offset)
        return inside(from);
    // A stretch that is longer than what is in sight is shown from its beginning.
    return inside(to > offset + length ? std::min(from, to - length) : offset);
}

} // namespace velmorath
