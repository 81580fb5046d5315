#pragma once

#include "CGGeometry.h"

namespace velmorath {

/// The area that the program has for itself.
class UIScreen {
public:
    static const UIScreen& main();

    /// As it is just now.
    CGRect bounds() const;
};

} // namespace velmorath
