#pragma once

#include "UIApplication.h"

namespace velmorath {

/// Whether a system keyboard is up: whether something is being typed.
bool isKeyboardPresented(const UIApplication&);

} // namespace velmorath
