#pragma once

#include "CGGeometry.h"
#include <algorithm>

namespace velmorath {

/// The middle of a rectangle, no wider than lines that are easy to read.
inline CGRect readableColumn(const CGRect& around)
{
    constexpr CGFloat widest = 700;
    const CGFloat width = std::clamp(around.size.width, 0.0, widest);
    return {{around.midX() - width / 2, around.minY()}, {width, std::max(0.0, around.size.height)}};
}

} // namespace velmorath
