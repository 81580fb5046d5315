#include "UIWindow.h"
#include "UIViewController.h"

namespace velmorath {

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller)
{
    m_rootViewController = std::move(controller);
    m_rootViewController->appearIn(*this, false);
}

} // namespace velmorath
