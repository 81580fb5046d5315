#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

/// What stands between line breaks; no lines in no text.
std::vector<std::string> splitLines(std::string_view);

} // namespace velmorath
