#include "UIFocusSystem.h"
#include "HostKey.h"
#include "UITableView.h"
#include "UIViewController.h"
#include "UIWindow.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr CGFloat ringWidth = 3;
constexpr CGFloat innerRingWidth = 1;
constexpr CGFloat ringRadius = 6;

void collectFocusable(const std::shared_ptr<UIView>& view, std::vector<std::shared_ptr<UIView>>& found)
{
    if (view->isHidden() || !view->isUserInteractionEnabled())
        return;
    if (view->canBecomeFocused())
        found.push_back(view);
    for (const auto& subview : view->subviews())
        collectFocusable(subview, found);
}

/// In reading order.
std::vector<std::shared_ptr<UIView>> focusableViews(UIView& screen)
{
    std::vector<std::shared_ptr<UIView>> views;
    collectFocusable(screen.shared_from_this(), views);
    std::stable_sort(views.begin(), views.end(), [](const auto& a, const auto& b) {
        return isReadBefore(a->convertToWindow(a->bounds().origin), b->convertToWindow(b->bounds().origin));
    });
    return views;
}

} // namespace

UIFocusSystem::UIFocusSystem()
    : m_ring(std::make_shared<CALayer>())
    , m_innerRing(std::make_shared<CALayer>())
{
    // White around black: seen on every colour.
    m_ring->setBorder(ringWidth, UIColor::white());
    m_ring->setCornerRadius(ringRadius);
    m_innerRing->setBorder(innerRingWidth, UIColor::black());
    m_innerRing->setCornerRadius(ringRadius - ringWidth);
    m_ring->addSublayer(m_innerRing);
}

void UIFocusSystem::focus(std::shared_ptr<UIView> view)
{
    m_focused = std::move(view);
    m_known.reset();
}

void UIFocusSystem::focusByUser(UIWindow& window, std::shared_ptr<UIView> view)
{
    replaceLostFocus(*window.topViewController().view());
    m_focused = std::move(view);
    m_known = m_focused;
    m_ringIsWanted = true;
    // What is done next may take it away before a frame shows where it was.
    placeRing(window);
}

void UIFocusSystem::hideRing()
{
    m_ringIsWanted = false;
    m_known.reset();
}

void UIFocusSystem::focusAround(UIView& view)
{
    for (UIView* around = &view; around; around = around->superview()) {
        if (around->canBecomeFocused()) {
            focus(around->shared_from_this());
            return;
        }
    }
}

bool UIFocusSystem::keyPressed(UIWindow& window, const HostKeyPress& press)
{
    window.layoutIfNeeded();
    UIViewController& controller = window.topViewController();
    const std::shared_ptr<UIView> screen = controller.view();
    const auto keepAlive = controller.shared_from_this();
    replaceLostFocus(*screen);
    m_ringIsWanted = true;
    const bool isFinal = press.key == HostKey::remove || press.key == HostKey::space;
    const bool onlyMarks = isFinal && m_focused && m_known.lock() != m_focused;
    const bool isUsed = onlyMarks || useKey(window, press, m_focused ? m_focused : screen);
    bringIntoSight();
    m_known = m_focused;
    return isUsed;
}

bool UIFocusSystem::useKey(UIWindow& window, const HostKeyPress& press, const std::shared_ptr<UIView>& start)
{
    for (UIView* view = start.get(); view && view != &window; view = view->superview()) {
        if (view->keyPressed(press) || (view->viewController() && view->viewController()->keyPressed(press)))
            return true;
    }
    switch (press.key) {
    case HostKey::tab:
        return moveFocus(window, !press.shift, false);
    case HostKey::down:
    case HostKey::right:
        return moveFocus(window, true, true);
    case HostKey::up:
    case HostKey::left:
        return moveFocus(window, false, true);
    default:
        return false;
    }
}

bool UIFocusSystem::moveFocus(UIWindow& window, bool forward, bool goesRound)
{
    const auto views = focusableViews(*window.topViewController().view());
    const bool isAtEnd = views.empty() || m_focused == (forward ? views.back() : views.front());
    if (isAtEnd && !goesRound) {
        m_focused.reset();
        return false;
    }
    if (views.empty())
        return true;
    const auto current = std::find(views.begin(), views.end(), m_focused);
    if (current == views.end()) {
        m_focused = forward ? views.front() : views.back();
        return true;
    }
    const auto count = static_cast<std::ptrdiff_t>(views.size());
    const std::ptrdiff_t next = (current - views.begin() + (forward ? 1 : count - 1)) % count;
    m_focused = views[static_cast<std::size_t>(next)];
    return true;
}

void UIFocusSystem::focusNearestTo(CGPoint place, UIView& screen)
{
    const auto distance = [place](const UIView& view) {
        const CGVector way = view.convertToWindow(view.bounds().center()) - place;
        return std::hypot(way.dx, way.dy);
    };
    const auto views = focusableViews(screen);
    const auto nearest = std::min_element(views.begin(), views.end(),
        [&](const auto& a, const auto& b) { return distance(*a) < distance(*b); });
    if (nearest != views.end())
        m_focused = *nearest;
}

void UIFocusSystem::replaceLostFocus(UIView& screen)
{
    if (m_lastScreen.get() != &screen) {
        if (m_focused && m_lastScreen)
            m_left.push_back({m_lastScreen, m_place.center()});
        m_focused.reset();
        m_lastScreen = screen.shared_from_this();
        const auto left = std::find_if(m_left.begin(), m_left.end(),
            [&](const Left& entry) { return entry.screen.lock() == m_lastScreen; });
        if (left != m_left.end()) {
            focusNearestTo(left->place, screen);
            m_left.erase(left, m_left.end());
        }
        return;
    }
    const bool isLost = m_focused && (!m_focused->isDescendantOf(screen) || m_focused->isHidden());
    if (!isLost)
        return;
    m_focused.reset();
    if (!m_place.isNull())
        focusNearestTo(m_place.center(), screen);
}

void UIFocusSystem::bringIntoSight() const
{
    if (!m_focused)
        return;
    for (UIView* around = m_focused->superview(); around; around = around->superview()) {
        auto* const scroller = dynamic_cast<UIScrollView*>(around);
        // A table scrolls by rows, when it is told to.
        if (!scroller || !scroller->isScrollEnabled() || dynamic_cast<UITableView*>(around))
            continue;
        const CGPoint corner = m_focused->convertToWindow(m_focused->bounds().origin);
        scroller->scrollRectToVisible({scroller->convertFromWindow(corner), m_focused->bounds().size}, false);
    }
}

void UIFocusSystem::update(UIWindow& window)
{
    replaceLostFocus(*window.topViewController().view());
    placeRing(window);
}

void UIFocusSystem::placeRing(UIWindow& window)
{
    const bool isSeen = m_focused && m_ringIsWanted && UIResponder::current() == nullptr;
    m_ring->setHidden(!isSeen);
    if (!m_focused)
        return;
    m_place = m_focused->shownInWindow(m_focused->bounds()).intersected(m_focused->clipInWindow());
    if (!isSeen)
        return;
    m_known = m_focused;
    if (window.layer().sublayers().back() != m_ring)
        window.layer().addSublayer(m_ring);
    m_ring->setFrame(m_place);
    m_innerRing->setFrame(m_ring->bounds().insetBy(ringWidth, ringWidth));
}

} // namespace velmorath
