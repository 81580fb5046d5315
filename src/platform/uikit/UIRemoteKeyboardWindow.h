#pragma once

#include "UIWindow.h"

namespace velmorath {

/// Among the application's windows as long as a text is being edited. The keyboard itself, where there
/// is one on the screen, is the machine's; this window shows nothing.
class UIRemoteKeyboardWindow : public UIWindow { };

} // namespace velmorath
