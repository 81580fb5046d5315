#pragma once

#include "UIPanGestureRecognizer.h"
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

/// A window onto a content that is higher than the view: follows the finger, gives way like rubber past
/// its ends and springs back, runs on after a flick. It scrolls up and down.
class UIScrollView : public UIView {
public:
    explicit UIScrollView(const CGRect& frame);
    ~UIScrollView() override;

    /// The content's point at the view's top left corner; y is negative when it is pulled past the top.
    CGPoint contentOffset() const { return bounds().origin; }
    /// Stops whatever moves the content.
    void setContentOffset(CGPoint);
    CGSize contentSize() const { return m_contentSize; }
    void setContentSize(CGSize);
    bool isScrollEnabled() const { return m_scrollEnabled; }
    void setScrollEnabled(bool enabled) { m_scrollEnabled = enabled; }
    bool isDragging() const { return m_dragStartOffset.has_value(); }
    /// Running on or springing back by itself.
    bool isDecelerating() const { return m_displayLink != 0; }
    void setScrollDelegate(UIScrollViewDelegate* delegate) { m_scrollDelegate = delegate; }

    /// Scrolls, never past the ends. False when there is nothing to scroll.
    bool scrollByWheel(CGVector);

    void layoutSubviews() override;

protected:
    /// Moves the content without stopping what moves it.
    void moveContentTo(CGFloat y);
    CGFloat maximumOffset() const { return std::max(0.0, m_contentSize.height - bounds().size.height); }
    void stopDecelerating();

private:
    class DragRecognizer;
    /// How the content moves by itself since the moment `start`.
    struct Motion {
        double start;
        CGFloat offset;
        /// Points a second.
        CGFloat velocity;
        /// Where it springs to; without one it runs on and gets slower.
        std::optional<CGFloat> target;
    };

    void handleDrag(UIGestureRecognizer&);
    void beginDragging();
    void drag();
    void endDragging(CGFloat velocity);
    void startDecelerating(CGFloat velocity);
    void decelerate(double now);

    std::shared_ptr<DragRecognizer> m_dragRecognizer;
    UIScrollViewDelegate* m_scrollDelegate = nullptr;
    CGSize m_contentSize;
    bool m_scrollEnabled = true;
    /// The offset that the finger would have moved from, were there no rubber.
    std::optional<CGFloat> m_dragStartOffset;
    CGFloat m_dragStartTranslation = 0;
    Motion m_motion{};
    int m_displayLink = 0;
};

} // namespace velmorath
