#pragma once

#include "Host.h"

namespace velmorath {

/// The area that the program has for itself.
class UIScreen {
public:
    static UIScreen main() { return {}; }

    /// As it is just now.
    CGRect bounds() const { return {{0, 0}, Host::current().screen().size()}; }
};

} // namespace velmorath
