#include "CGGeometry.h"

namespace velmorath {

CGRect CGRect::intersected(const CGRect& other) const
{
    if (isNull() || other.isNull())
        return null();
    const CGFloat left = std::max(minX(), other.minX());
    const CGFloat top = std::max(minY(), other.minY());
    const CGFloat right = std::min(maxX(), other.maxX());
    const CGFloat bottom = std::min(maxY(), other.maxY());
    if (right < left || bottom < top)
        return null();
    return CGRectMake(left, top, right - left, bottom - top);
}

CGRect CGRect::united(const CGRect& other) const
{
    if (isNull())
        return other;
    if (other.isNull())
        return *this;
    const CGFloat left = std::min(minX(), other.minX());
    const CGFloat top = std::min(minY(), other.minY());
    const CGFloat right = std::max(maxX(), other.maxX());
    const CGFloat bottom = std::max(maxY(), other.maxY());
    return CGRectMake(left, top, right - left, bottom - top);
}

} // namespace velmorath
