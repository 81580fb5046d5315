#pragma once

#include <string_view>

namespace velmorath {

/// For a state that must not be: writes the message to standard error and ends the program at once.
/// What is stored stays as it is.
[[noreturn]] void fatalError(std::string_view message);

} // namespace velmorath
