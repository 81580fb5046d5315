#include "Class.h"
#include "UIApplication+Keyboard.h"
#include <algorithm>

namespace velmorath {

bool isKeyboardPresented(const UIApplication& application)
{
    const Class* keyboardWindow = Class::named("UIRemoteKeyboardWindow");
    if (!keyboardWindow)
        return false;
    const auto& windows = application.windows();
    return std::any_of(
        windows.begin(), windows.end(), [&](const auto& window) { return keyboardWindow->isKind(*window); });
}

} // namespace velmorath
