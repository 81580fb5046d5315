#include "CAAnimation.h"

namespace velmorath {

namespace {

CGFloat blend(CGFloat from, CGFloat to, double share)
{
    return from + (to - from) * share;
}

CGPoint blend(CGPoint from, CGPoint to, double share)
{
    return {blend(from.x, to.x, share), blend(from.y, to.y, share)};
}

CGRect blend(const CGRect& from, const CGRect& to, double share)
{
    return {blend(from.origin, to.origin, share),
        {blend(from.size.width, to.size.width, share), blend(from.size.height, to.size.height, share)}};
}

CGAffineTransform blend(const CGAffineTransform& from, const CGAffineTransform& to, double share)
{
    return {blend(from.a, to.a, share), blend(from.b, to.b, share), blend(from.c, to.c, share),
        blend(from.d, to.d, share), blend(from.tx, to.tx, share), blend(from.ty, to.ty, share)};
}

CGColor blend(const CGColor& from, const CGColor& to, double share)
{
    return {blend(from.red, to.red, share), blend(from.green, to.green, share),
        blend(from.blue, to.blue, share), blend(from.alpha, to.alpha, share)};
}

} // namespace

template <typename T> void CAAnimation<T>::show(CALayerState& state, double time) const
{
    if (isOver(time))
        return;
    const double progress = std::max(0.0, (time - begin) / duration);
    state.*member = blend(from, to, progress * progress * (3 - 2 * progress));
}

template struct CAAnimation<CGFloat>;
template struct CAAnimation<CGPoint>;
template struct CAAnimation<CGRect>;
template struct CAAnimation<CGAffineTransform>;
template struct CAAnimation<CGColor>;

} // namespace velmorath
