#include "UIViewController.h"
#include "FatalError.h"
#include "HostKey.h"
#include "UIApplication.h"
#include "UIStoryboard.h"

namespace velmorath {

namespace {

constexpr double slideDuration = 0.35;
constexpr double fadeDuration = 0.2;

/// Lets a screen come in (or go away) while nothing can be touched.
void makeTransition(
    UIView& view, UIModalPresentationStyle style, bool comesIn, std::function<void()> completion)
{
    UIApplication::shared().beginIgnoringInteractionEvents();
    const auto finish = [completion = std::move(completion)] {
        UIApplication::shared().endIgnoringInteractionEvents();
        completion();
    };
    if (style == UIModalPresentationStyle::overFullScreen) {
        if (comesIn)
            view.setAlpha(0);
        UIView::animate(
            fadeDuration, 0, [&] { view.setAlpha(comesIn ? 1 : 0); }, finish);
        return;
    }
    const CGRect here = view.frame();
    const CGRect below = here.offsetBy(0, here.size.height);
    if (comesIn)
        view.setFrame(below);
    UIView::animate(
        slideDuration, 0, [&] { view.setFrame(comesIn ? here : below); }, finish);
}

} // namespace

UIViewController::~UIViewController()
{
    if (m_presented)
        m_presented->m_presenting = nullptr;
    if (m_view)
        m_view->setViewController(nullptr);
}

const std::shared_ptr<UIView>& UIViewController::view()
{
    if (m_view)
        return m_view;
    auto view = std::make_shared<UIView>(UIApplication::shared().keyWindow()->bounds());
    if (m_scene)
        m_scene->fill(*this, *view);
    m_view = std::move(view);
    m_view->setViewController(this);
    viewDidLoad();
    return m_view;
}

bool UIViewController::keyPressed(const HostKeyPress& press)
{
    return press.key == HostKey::escape && escapePressed();
}

void UIViewController::appearIn(UIWindow& window, bool animated)
{
    const std::shared_ptr<UIView> shown = view();
    shown->setFrame(window.bounds());
    shown->setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleHeight);
    viewWillAppear(animated);
    window.addSubview(shown);
}

void UIViewController::present(
    std::shared_ptr<UIViewController> controller, bool animated, std::function<void()> completion)
{
    UIWindow* window = view()->window();
    if (m_presented || !window)
        return;
    window->endEditing();
    m_presented = controller;
    controller->m_presenting = this;
    controller->appearIn(*window, animated);
    const auto finish = [weakSelf = weak_from_this(), controller, completion = std::move(completion)] {
        const auto self = weakSelf.lock();
        if (self && controller->m_style == UIModalPresentationStyle::fullScreen)
            self->view()->setHidden(true);
        if (completion)
            completion();
    };
    if (animated)
        makeTransition(*controller->view(), controller->m_style, true, finish);
    else
        finish();
}

void UIViewController::dismiss(bool animated, std::function<void()> completion)
{
    if (!m_presented) {
        if (m_presenting)
            m_presenting->dismiss(animated, std::move(completion));
        return;
    }
    const std::shared_ptr<UIViewController> leaving = m_presented;
    leaving->view()->endEditing();
    if (leaving->m_style == UIModalPresentationStyle::fullScreen) {
        m_view->setHidden(false);
        viewWillAppear(animated);
    }
    const auto finish = [self = shared_from_this(), leaving, completion = std::move(completion)] {
        leaving->m_view->removeFromSuperview();
        leaving->m_presenting = nullptr;
        self->m_presented.reset();
        if (completion)
            completion();
    };
    if (animated)
        makeTransition(*leaving->view(), leaving->m_style, false, finish);
    else
        finish();
}

void UIViewController::performSegue(const std::string& identifier, const std::any& sender)
{
    const std::shared_ptr<UIViewController> destination =
        m_scene ? m_scene->destinationOf(identifier) : nullptr;
    if (!destination)
        fatalError("The storyboard has no transition named " + identifier + " from this screen");
    UIStoryboardSegue segue{identifier, *destination};
    prepareForSegue(segue, sender);
    present(destination, true);
}

} // namespace velmorath
