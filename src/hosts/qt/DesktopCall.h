#pragma once

#include <string>
#include <vector>

namespace velmorath {

/// Somebody wants the window in front, perhaps with files to be opened in it.
struct DesktopCall {
    /// The desktop's permission to come to the front; empty when it gave none.
    std::string activationToken;
    /// Absolute.
    std::vector<std::string> files;
};

} // namespace velmorath
