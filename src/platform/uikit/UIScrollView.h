#pragma once

#include "CADisplayLink.h"
#include "UIPanGestureRecognizer.h"
#include "UIScrollMotion.h"
#include "UIView.h"
#include <optional>

namespace velmorath {

class UIScrollView;

class UIScrollViewDelegate {
public:
    virtual ~UIScrollViewDelegate() = default;

    virtual void scrollViewWillBeginDragging(UIScrollView&) { }
    /// The content offset changed, for whatever reason.
    virtual void scrollViewDidScroll(UIScrollView&) { }
    virtual void scrollViewDidEndDragging(UIScrollView&, bool /*willDecelerate*/) { }
};

/// A window onto a content that is larger than the view: follows the finger, gives way like rubber past
/// its ends and springs back, runs on after a flick or comes to rest at a page. It scrolls up and down, and
/// sideways when the content is wider than the view.
class UIScrollView : public UIView {
public:
    explicit UIScrollView(const CGRect& frame);

    /// The content's point at the view's top left corner; negative when it is pulled past the beginning.
    CGPoint contentOffset() const { return bounds().origin; }
    /// Stops whatever moves the content.
    void setContentOffset(CGPoint);
    CGSize contentSize() const { return m_contentSize; }
    void setContentSize(CGSize);
    /// Shows as much of the rectangle, in the content's coordinates, as fits, with the least move.
    void scrollRectToVisible(const CGRect&, bool animated);
    /// The content comes to rest at multiples of the view's size.
    void setPagingEnabled(bool enabled) { m_pagingEnabled = enabled; }
    /// Whether the content can be pulled past its ends.
    void setBounces(bool bounces) { m_bounces = bounces; }
    /// Sideways there are no indicators; this says that there shall be none.
    void setShowsHorizontalScrollIndicator(bool) { }
    /// A bar at the right edge shows, while the content moves up or down, which part of it is in sight.
    void setShowsVerticalScrollIndicator(bool shows) { m_showsIndicator = shows; }
    bool isScrollEnabled() const { return m_scrollEnabled; }
    void setScrollEnabled(bool enabled) { m_scrollEnabled = enabled; }
    bool isDragging() const { return m_dragStart.has_value(); }
    /// Moving by itself: running on, springing back, or on its way to where it shall be.
    bool isDecelerating() const { return m_motion.isRunning(); }
    void setScrollDelegate(UIScrollViewDelegate* delegate) { m_scrollDelegate = delegate; }

    /// Scrolls, never past the ends, or turns one page. False when there is nothing to scroll.
    bool scrollByWheel(CGVector);

    /// Pages are turned one by one, and what is too high for the view is scrolled.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    void layoutSubviews() override;
    /// Out of the window it stands still: whoever listened to it may be gone.
    void didMoveToWindow() override;

protected:
    /// Moves the content without stopping what moves it.
    void moveContentTo(CGPoint);
    /// The nearest offset at which the view is full of content.
    CGPoint inside(CGPoint offset) const;
    void stopDecelerating() { m_motion.invalidate(); }
    /// Scrolls this far up or down, where there is something to scroll to.
    std::vector<UIAccessibilityAction> scrollActions(
        CGFloat way, const std::function<void(CGPoint)>& scrollTo) const;

private:
    class DragRecognizer;

    void showIndicator();
    UIScrollRange rangeX() const;
    UIScrollRange rangeY() const;
    void turnPage(int step);
    void handleDrag(UIGestureRecognizer&);
    void beginDragging();
    void drag();
    void endDragging(CGVector velocity);
    /// On its way by itself, unless the user wants no motion.
    void goTo(CGPoint target);
    void springTo(CGPoint target, CGVector velocity);
    void startDecelerating(const UIScrollMotion& x, const UIScrollMotion& y);
    void decelerate(double now);

    std::shared_ptr<DragRecognizer> m_dragRecognizer;
    UIScrollViewDelegate* m_scrollDelegate = nullptr;
    CGSize m_contentSize;
    bool m_scrollEnabled = true;
    bool m_pagingEnabled = false;
    bool m_bounces = true;
    bool m_showsIndicator = false;
    std::shared_ptr<UIView> m_indicator;
    /// The offset that the finger would have moved from, were there no rubber.
    std::optional<CGPoint> m_dragStart;
    CGVector m_dragStartTranslation;
    UIScrollMotion m_motionX;
    UIScrollMotion m_motionY;
    CADisplayLink m_motion;
};

} // namespace velmorath
