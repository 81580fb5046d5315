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

    /// A component as a host shows it, from 0 to 255. What is no number is 0.
    static int toByte(CGFloat component)
    {
        return component > 0 ? static_cast<int>(std::lround(std::min(component, 1.0) * 255)) : 0;
    }

    CGColor withAlpha(CGFloat newAlpha) const { return {red, green, blue, newAlpha}; }

    bool operator==(const CGColor&) const = default;
};

} // namespace velmorath
