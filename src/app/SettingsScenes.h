#pragma once

#include "UIStoryboard.h"
#include <vector>

namespace velmorath {

/// The scenes "Info", "Info2" and "Info3": a bar with a title and a close button over a table of rows.
std::vector<UIStoryboardScene> settingsScenes();

} // namespace velmorath
