#pragma once

#include "CGText.h"

namespace velmorath {

/// The platform's standard fonts. Sizes in points.
struct UIFont {
    static CGFont systemFont(CGFloat size) { return {"", size, false}; }
    static CGFont boldSystemFont(CGFloat size) { return {"", size, true}; }
};

} // namespace velmorath
