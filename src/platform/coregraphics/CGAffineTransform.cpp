#include "CGAffineTransform.h"

namespace velmorath {

CGAffineTransform CGAffineTransform::concatenated(const CGAffineTransform& then) const
{
    return {a * then.a + b * then.c, a * then.b + b * then.d, c * then.a + d * then.c,
        c * then.b + d * then.d, tx * then.a + ty * then.c + then.tx, tx * then.b + ty * then.d + then.ty};
}

CGAffineTransform CGAffineTransform::inverted() const
{
    const CGFloat determinant = a * d - b * c;
    if (determinant == 0)
        return identity();
    return {d / determinant, -b / determinant, -c / determinant, a / determinant,
        (c * ty - d * tx) / determinant, (b * tx - a * ty) / determinant};
}

CGRect CGAffineTransform::apply(const CGRect& rect) const
{
    if (rect.isNull())
        return rect;
    const CGPoint corners[] = {apply(CGPoint{rect.minX(), rect.minY()}),
        apply(CGPoint{rect.maxX(), rect.minY()}), apply(CGPoint{rect.minX(), rect.maxY()}),
        apply(CGPoint{rect.maxX(), rect.maxY()})};
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    return CGRectMake(left, top, right - left, bottom - top);
}

} // namespace velmorath
