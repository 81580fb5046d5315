#include "UITouchDispatcher.h"
#include "UIView.h"
#include <algorithm>
#include <array>

namespace velmorath {

namespace {

template <typename Things, typename Thing> bool contains(const Things& things, const Thing& thing)
{
    return std::find(things.begin(), things.end(), thing) != things.end();
}

} // namespace

void UITouchDispatcher::touchesChanged(UIView& root, const std::vector<HostTouch>& changed, double time)
{
    std::array<std::vector<std::int64_t>, 4> fingersOf;
    for (const HostTouch& touch : changed) {
        const auto known = m_fingers.find(touch.identifier);
        if (touch.phase == HostTouch::Phase::began) {
            if (known != m_fingers.end() || isGestureGoingOn() || !addFinger(root, touch, time))
                continue;
        } else {
            if (known == m_fingers.end())
                continue;
            known->second.touch->moveTo(touch.location, time);
        }
        fingersOf[static_cast<std::size_t>(touch.phase)].push_back(touch.identifier);
    }
    const auto& [began, moved, ended, cancelled] = fingersOf;
    deliver(began, &UIGestureRecognizer::touchesBegan, &UIResponder::touchesBegan);
    deliver(moved, &UIGestureRecognizer::touchesMoved, &UIResponder::touchesMoved);
    deliver(ended, &UIGestureRecognizer::touchesEnded, &UIResponder::touchesEnded);
    deliver(cancelled, &UIGestureRecognizer::touchesCancelled, &UIResponder::touchesCancelled);
    for (const auto* gone : {&ended, &cancelled}) {
        for (std::int64_t identifier : *gone)
            m_fingers.erase(identifier);
    }
}

void UITouchDispatcher::cancelAll()
{
    std::vector<std::int64_t> all;
    for (const auto& entry : m_fingers)
        all.push_back(entry.first);
    deliver(all, &UIGestureRecognizer::touchesCancelled, &UIResponder::touchesCancelled);
    m_fingers.clear();
}

void UITouchDispatcher::cancelTouches(const UIView& gone)
{
    // First all are taken away, then everybody is told: whoever is told may do anything.
    Recognizers losers;
    UITouches touchesOfViews;
    for (auto& [identifier, finger] : m_fingers) {
        for (const auto& recognizer : std::exchange(finger.recognizers, {})) {
            const bool isGone = recognizer->view() && recognizer->view()->isDescendantOf(gone);
            (isGone ? losers : finger.recognizers).push_back(recognizer);
        }
        if (finger.touch->view()->isDescendantOf(gone) && std::exchange(finger.viewIsTold, false))
            touchesOfViews.push_back(finger.touch);
    }
    for (const auto& recognizer : losers) {
        if (recognizer->numberOfTouches() > 0)
            recognizer->touchesCancelled(UITouches(recognizer->touches()));
    }
    for (const auto& touch : touchesOfViews)
        touch->view()->touchesCancelled({touch});
}

bool UITouchDispatcher::addFinger(UIView& root, const HostTouch& touch, double time)
{
    std::shared_ptr<UIView> view = root.hitTest(root.convertFromWindow(touch.location));
    if (!view)
        return false;
    Finger finger;
    for (UIView* around = view.get(); around; around = around->superview()) {
        const auto& recognizers = around->gestureRecognizers();
        finger.recognizers.insert(finger.recognizers.end(), recognizers.begin(), recognizers.end());
    }
    finger.touch = std::make_shared<UITouch>(touch.location, time, std::move(view));
    return m_fingers.emplace(touch.identifier, std::move(finger)).second;
}

void UITouchDispatcher::deliver(
    const std::vector<std::int64_t>& fingers, Deliver toRecognizer, DeliverToView toView)
{
    deliverToRecognizers(fingers, toRecognizer);
    deliverToViews(fingers, toView);
}

void UITouchDispatcher::deliverToRecognizers(const std::vector<std::int64_t>& fingers, Deliver toRecognizer)
{
    Recognizers addressed;
    for (const std::int64_t identifier : fingers) {
        // What the fingers before this one set off may have taken it away.
        const auto finger = m_fingers.find(identifier);
        if (finger == m_fingers.end())
            continue;
        for (const auto& recognizer : finger->second.recognizers) {
            if (!contains(addressed, recognizer))
                addressed.push_back(recognizer);
        }
    }
    const bool areNew = toRecognizer == &UIGestureRecognizer::touchesBegan;
    // A gesture that begins as soon as the finger is down has it before the others hear of it.
    Recognizers winners;
    for (const auto& recognizer : addressed) {
        const UITouches touches = touchesFor(recognizer, fingers, areNew, winners);
        if (touches.empty())
            continue;
        ((*recognizer).*toRecognizer)(touches);
        if (recognizer->takeBeginning() || recognizer->claimsTouches()) {
            giveTouchesTo(recognizer);
            winners.push_back(recognizer);
        }
    }
}

UITouches UITouchDispatcher::touchesFor(const std::shared_ptr<UIGestureRecognizer>& recognizer,
    const std::vector<std::int64_t>& fingers, bool areNew, const Recognizers& winners) const
{
    UITouches touches;
    for (const std::int64_t identifier : fingers) {
        // What a recognizer before this one set off may have taken the touch away.
        const auto finger = m_fingers.find(identifier);
        if (finger == m_fingers.end())
            continue;
        const std::shared_ptr<UITouch>& touch = finger->second.touch;
        const auto tracks = [&](const auto& other) { return other->isTracking(*touch); };
        const bool isItsOwn = areNew ? contains(finger->second.recognizers, recognizer) : tracks(recognizer);
        if (isItsOwn && std::none_of(winners.begin(), winners.end(), tracks))
            touches.push_back(touch);
    }
    return touches;
}

void UITouchDispatcher::giveTouchesTo(const std::shared_ptr<UIGestureRecognizer>& winner)
{
    // A gesture with a length is the only one until it is over; others only have their own fingers.
    const bool hasAll = winner->isActive();
    // What failing and cancelling sets off may change the fingers.
    const auto fingers = m_fingers;
    for (const auto& [identifier, finger] : fingers) {
        if (!hasAll && !contains(finger.recognizers, winner))
            continue;
        for (const auto& recognizer : finger.recognizers) {
            if (recognizer != winner && recognizer->isTracking(*finger.touch))
                recognizer->fail();
        }
        const auto current = m_fingers.find(identifier);
        if (current != m_fingers.end() && std::exchange(current->second.viewIsTold, false))
            finger.touch->view()->touchesCancelled({finger.touch});
    }
}

void UITouchDispatcher::deliverToViews(const std::vector<std::int64_t>& fingers, DeliverToView toView)
{
    for (std::int64_t identifier : fingers) {
        const auto finger = m_fingers.find(identifier);
        if (finger == m_fingers.end() || !finger->second.viewIsTold)
            continue;
        const std::shared_ptr<UITouch> touch = finger->second.touch;
        ((*touch->view()).*toView)({touch});
    }
}

bool UITouchDispatcher::isGestureGoingOn() const
{
    for (const auto& entry : m_fingers) {
        for (const auto& recognizer : entry.second.recognizers) {
            if (recognizer->isActive())
                return true;
        }
    }
    return false;
}

} // namespace velmorath
