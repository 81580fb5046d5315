#include "UIScrollView.h"
#include "CATimeline.h"
#include "Host.h"

namespace velmorath {

namespace {

/// How much of a finger's way past the end the content still follows, at first.
constexpr CGFloat rubberStiffness = 0.55;
/// What is left of the speed after a millisecond of running on.
constexpr double decelerationRate = 0.998;
/// Slower than this (points a second) counts as standing still.
constexpr CGFloat standstill = 12;
/// How quickly the content springs back, in 1/s; it never swings over.
constexpr double springRate = 11;

/// The way that the content gives for a finger's way past the end; never more than the view's length.
CGFloat rubberBand(CGFloat way, CGFloat length)
{
    return length <= 0 ? 0 : (1 - 1 / (way * rubberStiffness / length + 1)) * length;
}

/// The finger's way for which the rubber gives this much.
CGFloat stretchedBy(CGFloat given, CGFloat length)
{
    return length <= 0 ? 0 : (1 / (1 - std::min(given / length, 0.99)) - 1) * length / rubberStiffness;
}

} // namespace

/// Pans, and catches a content that is moving by itself at the first touch.
class UIScrollView::DragRecognizer : public UIPanGestureRecognizer {
public:
    explicit DragRecognizer(UIScrollView& scrollView)
        : m_scrollView(scrollView)
    {
    }

    void touchesBegan(const UITouches& began) override
    {
        UIPanGestureRecognizer::touchesBegan(began);
        if (state() == State::possible && m_scrollView.isDecelerating())
            begin();
    }

protected:
    bool shouldBegin() override { return m_scrollView.isScrollEnabled(); }

private:
    UIScrollView& m_scrollView;
};

UIScrollView::UIScrollView(const CGRect& frame)
    : UIView(frame)
    , m_dragRecognizer(std::make_shared<DragRecognizer>(*this))
{
    setClipsToBounds(true);
    m_dragRecognizer->addTarget([this](UIGestureRecognizer& recognizer) { handleDrag(recognizer); });
    addGestureRecognizer(m_dragRecognizer);
}

UIScrollView::~UIScrollView()
{
    stopDecelerating();
}

void UIScrollView::setContentOffset(CGPoint offset)
{
    stopDecelerating();
    moveContentTo(offset.y);
}

void UIScrollView::moveContentTo(CGFloat y)
{
    if (y == contentOffset().y)
        return;
    CGRect moved = bounds();
    moved.origin.y = y;
    setBounds(moved);
    setNeedsLayout();
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewDidScroll(*this);
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
    // A content or a window that shrank leaves nothing empty below the content's end.
    if (!isDragging() && !isDecelerating() && contentOffset().y > maximumOffset())
        moveContentTo(maximumOffset());
}

bool UIScrollView::scrollByWheel(CGVector by)
{
    if (!m_scrollEnabled || isDragging() || by.dy == 0 || maximumOffset() == 0)
        return false;
    setContentOffset({0, std::clamp(contentOffset().y - by.dy, 0.0, maximumOffset())});
    return true;
}

void UIScrollView::handleDrag(UIGestureRecognizer& recognizer)
{
    switch (recognizer.state()) {
    case UIGestureRecognizer::State::began:
        beginDragging();
        break;
    case UIGestureRecognizer::State::changed:
        drag();
        break;
    case UIGestureRecognizer::State::ended:
        endDragging(-m_dragRecognizer->velocity().dy);
        break;
    case UIGestureRecognizer::State::cancelled:
        // Nobody let go: whatever hangs on how far the content was pulled must not happen.
        stopDecelerating();
        moveContentTo(std::clamp(contentOffset().y, 0.0, maximumOffset()));
        endDragging(0);
        break;
    case UIGestureRecognizer::State::possible:
    case UIGestureRecognizer::State::failed:
        break;
    }
}

void UIScrollView::beginDragging()
{
    stopDecelerating();
    const CGFloat y = contentOffset().y;
    const CGFloat length = bounds().size.height;
    CGFloat start = y;
    if (y < 0)
        start = -stretchedBy(-y, length);
    else if (y > maximumOffset())
        start = maximumOffset() + stretchedBy(y - maximumOffset(), length);
    m_dragStartOffset = start;
    m_dragStartTranslation = m_dragRecognizer->translationIn(*superview()).dy;
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewWillBeginDragging(*this);
}

void UIScrollView::drag()
{
    if (!m_dragStartOffset)
        return;
    const CGFloat way = m_dragRecognizer->translationIn(*superview()).dy - m_dragStartTranslation;
    const CGFloat wanted = *m_dragStartOffset - way;
    const CGFloat length = bounds().size.height;
    if (wanted < 0)
        moveContentTo(-rubberBand(-wanted, length));
    else if (wanted > maximumOffset())
        moveContentTo(maximumOffset() + rubberBand(wanted - maximumOffset(), length));
    else
        moveContentTo(wanted);
}

void UIScrollView::endDragging(CGFloat velocity)
{
    if (!m_dragStartOffset)
        return;
    m_dragStartOffset.reset();
    const bool isPastEnd = contentOffset().y < 0 || contentOffset().y > maximumOffset();
    const bool willDecelerate = isPastEnd || std::fabs(velocity) > standstill;
    if (m_scrollDelegate)
        m_scrollDelegate->scrollViewDidEndDragging(*this, willDecelerate);
    if (willDecelerate)
        startDecelerating(velocity);
}

void UIScrollView::startDecelerating(CGFloat velocity)
{
    m_motion = {Host::current().clock().now(), contentOffset().y, velocity, {}};
    if (m_displayLink == 0)
        m_displayLink = CATimeline::main().addDisplayLink([this](double now) { decelerate(now); });
}

void UIScrollView::stopDecelerating()
{
    if (m_displayLink != 0)
        CATimeline::main().removeDisplayLink(std::exchange(m_displayLink, 0));
}

void UIScrollView::decelerate(double now)
{
    const double seconds = std::max(0.0, now - m_motion.start);
    CGFloat offset, velocity;
    if (m_motion.target) {
        const CGFloat away = m_motion.offset - *m_motion.target;
        const CGFloat drift = m_motion.velocity + springRate * away;
        const double faded = std::exp(-springRate * seconds);
        offset = *m_motion.target + (away + drift * seconds) * faded;
        velocity = (drift - springRate * (away + drift * seconds)) * faded;
    } else {
        const double rate = 1000 * std::log(decelerationRate);
        const double faded = std::exp(rate * seconds);
        offset = m_motion.offset + m_motion.velocity * (faded - 1) / rate;
        velocity = m_motion.velocity * faded;
    }

    const CGFloat inside = std::clamp(offset, 0.0, maximumOffset());
    const bool isPastEnd = offset != inside;
    if (!m_motion.target && isPastEnd) {
        m_motion = {now, offset, velocity, inside};
        moveContentTo(offset);
        return;
    }
    const bool hasArrived = m_motion.target
        ? std::fabs(offset - *m_motion.target) < 0.25 && std::fabs(velocity) < standstill
        : std::fabs(velocity) < standstill;
    if (!hasArrived) {
        moveContentTo(offset);
        return;
    }
    const CGFloat end = m_motion.target ? std::clamp(*m_motion.target, 0.0, maximumOffset()) : inside;
    stopDecelerating();
    moveContentTo(end);
}

} // namespace velmorath
