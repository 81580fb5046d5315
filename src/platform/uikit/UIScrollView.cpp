#include "UIScrollView.h"
#include "Bundle.h"
#include "Host.h"

namespace velmorath {

namespace {

/// Slower than this (points a second) the content stays where it is let go.
constexpr CGFloat standstill = 12;

constexpr CGFloat indicatorWidth = 3;
constexpr CGFloat indicatorMargin = 3;
constexpr CGFloat shortestIndicator = 36;
constexpr double indicatorRest = 0.6;
constexpr double indicatorFade = 0.3;
const CGColor indicatorColor = CGColor::gray(1, 0.6);
/// What is seen again after a page was scrolled by.
constexpr CGFloat pageOverlap = 60;

} // namespace

/// Pans, and catches a content that is moving by itself at the first touch.
class UIScrollView::DragRecognizer : public UIPanGestureRecognizer {
public:
    void touchesBegan(const UITouches& began) override
    {
        UIPanGestureRecognizer::touchesBegan(began);
        if (state() == State::possible && scrollView() && scrollView()->isDecelerating())
            begin();
    }

protected:
    bool shouldBegin() override { return scrollView() && scrollView()->isScrollEnabled(); }

private:
    /// Null when it was destroyed under the finger.
    UIScrollView* scrollView() const { return static_cast<UIScrollView*>(view()); }
};

UIScrollView::UIScrollView(const CGRect& frame)
    : UIView(frame)
    , m_dragRecognizer(std::make_shared<DragRecognizer>())
{
    setClipsToBounds(true);
    m_dragRecognizer->addTarget([this](UIGestureRecognizer& recognizer) { handleDrag(recognizer); });
    addGestureRecognizer(m_dragRecognizer);
}

UIScrollRange UIScrollView::rangeX() const
{
    const CGFloat length = bounds().size.width;
    const CGFloat maximum = std::max(0.0, m_contentSize.width - length);
    return {maximum, length, m_bounces && maximum > 0};
}

UIScrollRange UIScrollView::rangeY() const
{
    const CGFloat length = bounds().size.height;
    return {std::max(0.0, m_contentSize.height - length), length, m_bounces};
}

CGPoint UIScrollView::inside(CGPoint offset) const
{
    return {rangeX().inside(offset.x), rangeY().inside(offset.y)};
}

void UIScrollView::setContentOffset(CGPoint offset)
{
    stopDecelerating();
    moveContentTo(offset);
}

void UIScrollView::moveContentTo(CGPoint offset)
{
    if (offset == contentOffset())
        return;
    CGRect moved = bounds();
    moved.origin = offset;
    setBounds(moved);
    setNeedsLayout();
    if (m_showsIndicator)
        showIndicator();
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewDidScroll(*this);
}

void UIScrollView::showIndicator()
{
    const CGFloat furthest = rangeY().maximum;
    if (furthest <= 0)
        return;
    if (!m_indicator) {
        m_indicator = std::make_shared<UIView>(CGRect{});
        m_indicator->setBackgroundColor(indicatorColor);
        m_indicator->layer().setCornerRadius(indicatorWidth / 2);
        m_indicator->setUserInteractionEnabled(false);
        addSubview(m_indicator);
    }
    const CGRect shown = bounds().insetBy(indicatorMargin, indicatorMargin);
    const CGFloat height = std::max(std::min(shortestIndicator, shown.size.height),
        shown.size.height * bounds().size.height / m_contentSize.height);
    const CGFloat way = (shown.size.height - height) * std::clamp(contentOffset().y / furthest, 0.0, 1.0);
    m_indicator->setFrame(
        CGRectMake(shown.maxX() - indicatorWidth, shown.minY() + way, indicatorWidth, height));
    m_indicator->setAlpha(1);
    UIView::animate(indicatorFade, indicatorRest, [this] { m_indicator->setAlpha(0); });
}

void UIScrollView::scrollRectToVisible(const CGRect& rect, bool animated)
{
    const CGPoint offset = contentOffset();
    const CGPoint target{rangeX().showing(offset.x, rect.minX(), rect.maxX()),
        rangeY().showing(offset.y, rect.minY(), rect.maxY())};
    if (animated)
        goTo(target);
    else
        setContentOffset(target);
}

void UIScrollView::setContentSize(CGSize size)
{
    if (m_contentSize == size)
        return;
    m_contentSize = size;
    setNeedsLayout();
}

void UIScrollView::layoutSubviews()
{
    // A content or a window that shrank leaves nothing empty beyond the content's end.
    if (isDragging() || isDecelerating())
        return;
    const CGPoint offset = contentOffset();
    moveContentTo({std::min(offset.x, rangeX().maximum), std::min(offset.y, rangeY().maximum)});
}

bool UIScrollView::scrollByWheel(CGVector by)
{
    if (!m_scrollEnabled || isDragging())
        return false;
    // A wheel that only turns up and down turns pages that lie side by side, too.
    const CGFloat turn = by.dx != 0 ? by.dx : by.dy;
    const bool canScroll = m_pagingEnabled
        ? turn != 0 && rangeX().maximum > 0
        : (by.dx != 0 && rangeX().maximum > 0) || (by.dy != 0 && rangeY().maximum > 0);
    if (canScroll && m_pagingEnabled)
        turnPage(turn < 0 ? 1 : -1);
    else if (canScroll)
        setContentOffset(inside({contentOffset().x - by.dx, contentOffset().y - by.dy}));
    return canScroll;
}

void UIScrollView::turnPage(int step)
{
    if (isDecelerating())
        return;
    const UIScrollRange x = rangeX();
    const CGPoint offset = contentOffset();
    goTo({x.inside(offset.x + step * x.length), offset.y});
}

std::optional<UIAccessibilityInfo> UIScrollView::accessibilityInfo()
{
    UIAccessibilityInfo info{{.label = accessibilityLabel()}};
    if (!m_pagingEnabled) {
        if (!m_scrollEnabled)
            return {};
        info.actions = scrollActions(std::max(pageOverlap, bounds().size.height - pageOverlap),
            [this](CGPoint offset) { setContentOffset(offset); });
        return info.actions.empty() ? std::nullopt : std::optional(info);
    }
    const auto addTurn = [&](std::string_view name, int step) {
        info.actions.push_back({Bundle::main().localizedString(name), [this, step] { turnPage(step); }});
    };
    if (contentOffset().x < rangeX().maximum)
        addTurn("Next page", 1);
    if (contentOffset().x > 0)
        addTurn("Previous page", -1);
    return info;
}

std::vector<UIAccessibilityAction> UIScrollView::scrollActions(
    CGFloat way, const std::function<void(CGPoint)>& scrollTo) const
{
    std::vector<UIAccessibilityAction> actions;
    const auto add = [&](std::string_view name, CGFloat by) {
        const CGPoint target = inside({0, contentOffset().y + by});
        if (by * (target.y - contentOffset().y) > 0)
            actions.push_back({Bundle::main().localizedString(name), [=] { scrollTo(target); }});
    };
    add("Scroll down", way);
    add("Scroll up", -way);
    return actions;
}

void UIScrollView::handleDrag(UIGestureRecognizer& recognizer)
{
    using State = UIGestureRecognizer::State;
    const State state = recognizer.state();
    if (state == State::began) {
        beginDragging();
    } else if (state == State::changed) {
        drag();
    } else if (state == State::ended) {
        const CGVector finger = m_dragRecognizer->velocity();
        endDragging({rangeX().canMove() ? -finger.dx : 0, rangeY().canMove() ? -finger.dy : 0});
    } else if (state == State::cancelled) {
        // Nobody let go: whatever hangs on how far the content was pulled must not happen.
        stopDecelerating();
        moveContentTo(inside(contentOffset()));
        endDragging({0, 0});
    }
}

void UIScrollView::beginDragging()
{
    stopDecelerating();
    const CGPoint offset = contentOffset();
    m_dragStart = CGPoint{rangeX().unstretched(offset.x), rangeY().unstretched(offset.y)};
    m_dragStartTranslation = m_dragRecognizer->translationIn(*superview());
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewWillBeginDragging(*this);
}

void UIScrollView::drag()
{
    if (!m_dragStart)
        return;
    const CGVector finger = m_dragRecognizer->translationIn(*superview());
    const CGFloat x = m_dragStart->x - (finger.dx - m_dragStartTranslation.dx);
    const CGFloat y = m_dragStart->y - (finger.dy - m_dragStartTranslation.dy);
    moveContentTo({rangeX().stretched(x), rangeY().stretched(y)});
}

void UIScrollView::endDragging(CGVector velocity)
{
    if (!m_dragStart)
        return;
    m_dragStart.reset();
    const CGPoint offset = contentOffset();
    const CGPoint rest = m_pagingEnabled
        ? CGPoint{rangeX().pageAfter(offset.x, velocity.dx), rangeY().pageAfter(offset.y, velocity.dy)}
        : inside(offset);
    const bool runsOn = !m_pagingEnabled && std::hypot(velocity.dx, velocity.dy) > standstill;
    const bool willDecelerate = runsOn || rest != offset;
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewDidEndDragging(*this, willDecelerate);
    const double now = Host::current().clock().now();
    if (willDecelerate && m_pagingEnabled)
        springTo(rest, velocity);
    else if (willDecelerate)
        startDecelerating({now, contentOffset().x, velocity.dx}, {now, contentOffset().y, velocity.dy});
}

void UIScrollView::goTo(CGPoint target)
{
    if (Host::current().screen().reducesMotion())
        setContentOffset(target);
    else
        springTo(target, {0, 0});
}

void UIScrollView::springTo(CGPoint target, CGVector velocity)
{
    const double now = Host::current().clock().now();
    const CGPoint offset = contentOffset();
    startDecelerating(UIScrollMotion::springing(now, offset.x, velocity.dx, target.x),
        UIScrollMotion::springing(now, offset.y, velocity.dy, target.y));
}

void UIScrollView::startDecelerating(const UIScrollMotion& x, const UIScrollMotion& y)
{
    m_motionX = x;
    m_motionY = y;
    if (!m_motion.isRunning())
        m_motion = CADisplayLink([this](double now) { decelerate(now); });
}

void UIScrollView::didMoveToWindow()
{
    if (!window())
        stopDecelerating();
}

void UIScrollView::decelerate(double now)
{
    const CGPoint offset{m_motionX.step(now, rangeX()), m_motionY.step(now, rangeY())};
    if (m_motionX.isOver() && m_motionY.isOver())
        stopDecelerating();
    moveContentTo(offset);
}

} // namespace velmorath
