#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// Components as they were given, beyond 0 … 1 too: only a host clamps, when it draws.
struct CGColor {
    CGFloat red = 0;
    CGFloat green = 0;
    CGFloat blue = 0;
    CGFloat alpha = 1;

    static CGColor gray(CGFloat level, CGFloat alpha = 1) { return {level, level, level, alpha}; }

    CGColor withAlpha(CGFloat newAlpha) const { return {red, green, blue, newAlpha}; }

    bool operator==(const CGColor&) const = default;
};

} // namespace velmorath
