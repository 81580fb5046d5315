#include "UIWindow.h"
#include "UIViewController.h"

namespace velmorath {

void UIWindow::setRootViewController(std::shared_ptr<UIViewController> controller)
{
    m_rootViewController = std::move(controller);
    m_rootViewController->appearIn(*this, false);
}

UIViewController& UIWindow::topViewController() const
{
    UIViewController* controller = m_rootViewController.get();
    while (controller->presentedViewController())
        controller = controller->presentedViewController().get();
    return *controller;
}

} // namespace velmorath
