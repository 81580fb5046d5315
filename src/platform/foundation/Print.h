#pragma once

#include <string_view>

namespace velmorath {

/// One line on the host's console.
void print(std::string_view line);

} // namespace velmorath
