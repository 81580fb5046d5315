#pragma once

#include "CGContext.h"
#include <cstdint>
#include <string_view>

namespace velmorath {

/// How far down a list of so many rows a row stands: from 0.0 for the first to 0.6 for the last; not a
/// number when there is only one.
double rowRamp(std::int64_t index, std::size_t count);

/// A row's colour in a theme, for its ramp. Theme names are compared exactly; any other name gives black.
/// Some components exceed 1, on purpose.
CGColor themeColor(std::string_view theme, double value);

/// What lies over the colour of every row, from its top to its bottom.
CGGradient rowSheen();

} // namespace velmorath
