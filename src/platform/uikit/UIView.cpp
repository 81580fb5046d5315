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
    CATimeline& timeline = CATimeline::main();
    const double begin = Host::current().clock().now() + delay;
    const auto around = timeline.animating();
    timeline.setAnimating(CAAnimationTiming{begin, duration});
    changes();
    timeline.setAnimating(around);
    timeline.keepRunningUntil(begin + duration, std::move(completion));
}

void UIView::performWithoutAnimation(const std::function<void()>& changes)
{
    CATimeline& timeline = CATimeline::main();
    const auto around = timeline.animating();
    timeline.setAnimating({});
    changes();
    timeline.setAnimating(around);
}

void UIView::setFrame(const CGRect& frame)
{
    const CGSize before = bounds().size;
    m_layer->setFrame(frame);
    const CGSize now = bounds().size;
    if (before == now)
        return;
    for (const auto& subview : m_subviews)
        subview->autoresize(before, now);
    setNeedsLayout();
    setNeedsDisplay();
}

void UIView::setBounds(const CGRect& newBounds)
{
    const CGSize before = bounds().size;
    m_layer->setBounds(newBounds);
    if (before == newBounds.size)
        return;
    for (const auto& subview : m_subviews)
        subview->autoresize(before, newBounds.size);
    setNeedsLayout();
}

void UIView::autoresize(CGSize before, CGSize now)
{
    struct Span {
        CGFloat start, length;
    };
    // What is flexible shares the change equally.
    const auto follow = [](Span span, CGFloat change, bool startFlexes, bool lengthFlexes,
                            bool endFlexes) -> Span {
        const int flexible = startFlexes + lengthFlexes + endFlexes;
        if (flexible == 0)
            return span;
        const CGFloat share = change / flexible;
        return {
            span.start + (startFlexes ? share : 0), std::max(0.0, span.length + (lengthFlexes ? share : 0))};
    };
    const auto flexes = [this](unsigned part) { return (m_autoresizingMask & part) != 0; };
    if (m_autoresizingMask == 0)
        return;
    const CGRect old = frame();
    const Span x = follow({old.origin.x, old.size.width}, now.width - before.width,
        flexes(UIViewAutoresizing::flexibleLeftMargin), flexes(UIViewAutoresizing::flexibleWidth),
        flexes(UIViewAutoresizing::flexibleRightMargin));
    const Span y = follow({old.origin.y, old.size.height}, now.height - before.height,
        flexes(UIViewAutoresizing::flexibleTopMargin), flexes(UIViewAutoresizing::flexibleHeight),
        flexes(UIViewAutoresizing::flexibleBottomMargin));
    setFrame(CGRectMake(x.start, y.start, x.length, y.length));
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
    if (isHidden() || alpha() < 0.01 || !m_userInteractionEnabled || !pointInside(point))
        return nullptr;
    for (auto subview = m_subviews.rbegin(); subview != m_subviews.rend(); ++subview) {
        if (auto hit = (*subview)->hitTest((*subview)->toSuperview().inverted().apply(point)))
            return hit;
    }
    return shared_from_this();
}

CGAffineTransform UIView::toSuperview() const
{
    return m_layer->model().toSuperlayer();
}

CGPoint UIView::convertToWindow(CGPoint point) const
{
    for (const UIView* view = this; view->m_superview; view = view->m_superview)
        point = view->toSuperview().apply(point);
    return point;
}

CGPoint UIView::convertFromWindow(CGPoint point) const
{
    if (!m_superview)
        return point;
    return toSuperview().inverted().apply(m_superview->convertFromWindow(point));
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

bool UIView::hasGestureGoingOn() const
{
    return std::any_of(m_gestureRecognizers.begin(), m_gestureRecognizers.end(),
               [](const auto& recognizer) { return recognizer->isActive(); })
        || std::any_of(m_subviews.begin(), m_subviews.end(),
            [](const auto& subview) { return subview->hasGestureGoingOn(); });
}

} // namespace velmorath
