#pragma once

#include "Accessibility.h"

namespace velmorath {

/// The tree as JSON, for page/mirror.js.
std::string toJson(const AccessibilityElement&);

} // namespace velmorath
