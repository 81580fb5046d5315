#pragma once

#include "CGContext.h"
#include <string_view>

namespace velmorath {

/// A row's colour in a theme. The value is how far down its list the row stands, from 0.0 to 0.6. Theme
/// names are compared exactly; any other name gives black. Some components exceed 1, on purpose.
CGColor themeColor(std::string_view theme, double value);

/// What lies over the colour of every row, from its top to its bottom.
CGGradient rowSheen();

} // namespace velmorath
