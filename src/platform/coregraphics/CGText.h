#pragma once

#include "CGColor.h"
#include "CGGeometry.h"
#include <string>

namespace velmorath {

struct CGFont {
    /// Empty: the machine's own interface font. A family that the machine lacks gives that font too.
    std::string family{};
    /// Points from one line's top to its bottom without leading, as type sizes go.
    CGFloat size = 17;
    bool bold = false;

    bool operator==(const CGFont&) const = default;
};

enum class CGTextAlignment {
    /// Left for text that reads from the left, right for text that reads from the right.
    natural,
    left,
    center,
    right,
};

/// How a text is drawn in a rectangle. One line stands in the rectangle's vertical middle and ends in
/// an ellipsis where it is too long; wrapped text begins at the top and ends at the bottom.
struct CGTextStyle {
    CGFont font;
    CGColor color;
    CGTextAlignment alignment = CGTextAlignment::natural;
    bool wraps = false;

    bool operator==(const CGTextStyle&) const = default;
};

struct CGTextMetrics {
    CGSize size;
    /// The direction of the first strong character.
    bool readsFromTheRight = false;
};

} // namespace velmorath
