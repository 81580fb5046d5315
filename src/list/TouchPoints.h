#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// The two fingers of a pinch, in the table's coordinates.
struct TouchPoints {
    CGPoint upper;
    CGPoint lower;
};

} // namespace velmorath
