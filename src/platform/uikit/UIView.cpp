#include "UIView.h"
#include "CATimeline.h"
#include "Host.h"
#include "UIApplication.h"
#include "UIGestureRecognizer.h"
#include "UIViewController.h"
#include <algorithm>

namespace velmorath {

UIView::UIView(const CGRect& frame)
    : m_layer(std::make_shared<CALayer>())
{
    m_layer->setFrame(frame);
    m_layer->setDelegate(this);
}

UIView::~UIView()
{
    m_layer->setDelegate(nullptr);
    for (const auto& subview : m_subviews) {
        subview->m_superview = nullptr;
        subview->m_layer->removeFromSuperlayer();
    }
    for (const auto& recognizer : m_gestureRecognizers)
        recognizer->setView(nullptr);
}

void UIView::animate(
    double duration, double delay, const std::function<void()>& changes, std::function<void()> completion)
{
    const double begin = Host::current().clock().now() + delay;
    changeWith(CAAnimationTiming{begin, duration}, changes);
    CATimeline::main().keepRunningUntil(begin + duration, std::move(completion));
}

void UIView::changeWith(std::optional<CAAnimationTiming> timing, const std::function<void()>& changes)
{
    CATimeline& timeline = CATimeline::main();
    const auto around = timeline.animating();
    timeline.setAnimating(timing);
    changes();
    timeline.setAnimating(around);
}

void UIView::setFrame(const CGRect& frame)
{
    const CGSize before = bounds().size;
    m_layer->setFrame(frame);
    sizeChanged(before);
}

void UIView::setBounds(const CGRect& newBounds)
{
    const CGSize before = bounds().size;
    m_layer->setBounds(newBounds);
    sizeChanged(before);
}

void UIView::sizeChanged(CGSize before)
{
    const CGSize now = bounds().size;
    if (before == now)
        return;
    for (const auto& subview : m_subviews)
        subview->autoresize(now.width - before.width, now.height - before.height);
    setNeedsLayout();
    setNeedsDisplay();
}

void UIView::autoresize(CGFloat wider, CGFloat higher)
{
    const auto flexes = [this](unsigned part) { return (m_autoresizingMask & part) != 0; };
    // What is flexible shares the change equally.
    const auto follow = [&](CGFloat& start, CGFloat& length, CGFloat change, unsigned startMargin,
                            unsigned side, unsigned endMargin) {
        const int flexible = flexes(startMargin) + flexes(side) + flexes(endMargin);
        if (flexes(startMargin))
            start += change / flexible;
        if (flexes(side))
            length = std::max(0.0, length + change / flexible);
    };
    if (m_autoresizingMask == 0)
        return;
    CGRect rect = frame();
    follow(rect.origin.x, rect.size.width, wider, UIViewAutoresizing::flexibleLeftMargin,
        UIViewAutoresizing::flexibleWidth, UIViewAutoresizing::flexibleRightMargin);
    follow(rect.origin.y, rect.size.height, higher, UIViewAutoresizing::flexibleTopMargin,
        UIViewAutoresizing::flexibleHeight, UIViewAutoresizing::flexibleBottomMargin);
    setFrame(rect);
}

bool UIView::isDescendantOf(const UIView& ancestor) const
{
    for (const UIView* view = this; view; view = view->m_superview) {
        if (view == &ancestor)
            return true;
    }
    return false;
}

void UIView::addSubview(std::shared_ptr<UIView> view)
{
    insertSubview(std::move(view), std::numeric_limits<std::size_t>::max());
}

void UIView::insertSubview(std::shared_ptr<UIView> view, std::size_t index)
{
    const bool isNew = view->m_superview != this;
    if (isNew)
        view->removeFromSuperview();
    else
        view->detach();
    view->m_superview = this;
    // The new view's layer goes right below the layer of the view that it is put under; layers that were
    // inserted by hand stay where they are.
    std::size_t layerIndex = m_layer->sublayers().size();
    if (index < m_subviews.size()) {
        const auto& layers = m_layer->sublayers();
        const auto above = std::find(layers.begin(), layers.end(), m_subviews[index]->m_layer);
        layerIndex = static_cast<std::size_t>(above - layers.begin());
    }
    m_layer->insertSublayer(view->m_layer, layerIndex);
    index = std::min(index, m_subviews.size());
    m_subviews.insert(m_subviews.begin() + static_cast<std::ptrdiff_t>(index), view);
    setNeedsLayout();
    if (isNew && window())
        view->tellMovedToWindow();
}

void UIView::tellMovedToWindow()
{
    didMoveToWindow();
    const auto subviews = m_subviews;
    for (const auto& subview : subviews)
        subview->tellMovedToWindow();
}

void UIView::detach()
{
    m_layer->removeFromSuperlayer();
    std::erase_if(m_superview->m_subviews, [this](const auto& subview) { return subview.get() == this; });
    m_superview = nullptr;
}

void UIView::removeFromSuperview()
{
    if (!m_superview)
        return;
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    const bool wasInWindow = window();
    if (wasInWindow) {
        endEditing();
        UIApplication::shared().cancelTouches(*this);
    }
    // Whoever was told of that may have taken the view away already.
    if (!m_superview)
        return;
    detach();
    if (wasInWindow)
        tellMovedToWindow();
}

bool UIView::endEditing()
{
    auto* responder = dynamic_cast<UIView*>(UIResponder::current());
    return !responder || !responder->isDescendantOf(*this) || responder->resignFirstResponder();
}

std::shared_ptr<UIView> UIView::hitTest(CGPoint point)
{
    if (isHidden() || alpha() < 0.01 || !m_userInteractionEnabled || !bounds().contains(point))
        return nullptr;
    for (auto subview = m_subviews.rbegin(); subview != m_subviews.rend(); ++subview) {
        if (auto hit =
                (*subview)->hitTest((*subview)->m_layer->model().toSuperlayer().inverted().apply(point)))
            return hit;
    }
    return shared_from_this();
}

CGPoint UIView::convertToWindow(CGPoint point) const
{
    for (const UIView* view = this; view->m_superview; view = view->m_superview)
        point = view->m_layer->model().toSuperlayer().apply(point);
    return point;
}

CGPoint UIView::convertFromWindow(CGPoint point) const
{
    if (!m_superview)
        return point;
    return m_layer->model().toSuperlayer().inverted().apply(m_superview->convertFromWindow(point));
}

CGRect UIView::shownInWindow(const CGRect& rect) const
{
    const double time = CATimeline::main().frameTime();
    CGRect shown = rect;
    for (const UIView* view = this; view->m_superview; view = view->m_superview)
        shown = view->m_layer->presented(time).toSuperlayer().apply(shown);
    return shown;
}

CGRect UIView::clipInWindow() const
{
    const UIView* root = this;
    while (root->m_superview)
        root = root->m_superview;
    CGRect clip = root->bounds();
    for (const UIView* view = m_superview; view && view->m_superview; view = view->m_superview) {
        if (view->m_layer->masksToBounds())
            clip = clip.intersected(
                view->shownInWindow(view->m_layer->presented(CATimeline::main().frameTime()).bounds));
    }
    return clip;
}

void UIView::setNeedsLayout()
{
    m_needsLayout = true;
    Host::current().screen().requestFrame();
}

void UIView::layoutIfNeeded()
{
    if (m_needsLayout) {
        m_needsLayout = false;
        layoutSubviews();
        if (m_viewController)
            m_viewController->viewDidLayoutSubviews();
    }
    // By index: a layout may add and remove views.
    for (std::size_t i = 0; i < m_subviews.size(); ++i) {
        const std::shared_ptr<UIView> subview = m_subviews[i];
        subview->layoutIfNeeded();
    }
}

void UIView::addGestureRecognizer(std::shared_ptr<UIGestureRecognizer> recognizer)
{
    recognizer->setView(this);
    m_gestureRecognizers.push_back(std::move(recognizer));
}

bool UIView::canBeUsed()
{
    for (const UIView* view = this; view; view = view->m_superview) {
        if (view->isHidden() || !view->m_userInteractionEnabled)
            return false;
    }
    return window();
}

std::optional<UIAccessibilityInfo> UIView::accessibilityInfo()
{
    if (!m_viewController || m_accessibilityLabel.empty())
        return {};
    return UIAccessibilityInfo{{.role = AccessibilityRole::screen, .label = m_accessibilityLabel}};
}

bool UIView::hasGestureGoingOn() const
{
    return std::any_of(m_gestureRecognizers.begin(), m_gestureRecognizers.end(),
               [](const auto& recognizer) { return recognizer->isActive(); })
        || std::any_of(m_subviews.begin(), m_subviews.end(),
            [](const auto& subview) { return subview->hasGestureGoingOn(); });
}

} // namespace velmorath
