#pragma once

#include "CGColor.h"

namespace velmorath {

/// The platform's standard colours.
struct UIColor {
    static CGColor black() { return {0, 0, 0, 1}; }
    static CGColor white() { return {1, 1, 1, 1}; }
    static CGColor clear() { return {0, 0, 0, 0}; }
    static CGColor red() { return {1, 0, 0, 1}; }
    static CGColor green() { return {0, 1, 0, 1}; }
    static CGColor blue() { return {0, 0, 1, 1}; }
    static CGColor systemGreen() { return {0.204, 0.78, 0.349, 1}; }
};

} // namespace velmorath
