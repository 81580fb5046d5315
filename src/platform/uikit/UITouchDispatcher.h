#pragma once

#include "HostClient.h"
#include "UIGestureRecognizer.h"
#include "UITouch.h"
#include <map>

namespace velmorath {

class UIView;

/// Takes the fingers that the host reports to the recognizers and views under them, and sees to it that
/// there is one gesture at a time: from the innermost view outwards the first recognizer to begin takes its
/// fingers from all others, and those of the other fingers fail, too. While a gesture is going on, further
/// fingers are not listened to.
class UITouchDispatcher {
public:
    void touchesChanged(UIView& root, const std::vector<HostTouch>&, double time);

    std::size_t numberOfFingers() const { return m_fingers.size(); }

    /// Takes all fingers away from whoever has them; they are ignored until they leave.
    void cancelAll();
    /// Takes the touches on this view, and on all that is in it, from it and its recognizers. Recognizers of
    /// the views around it keep them: a list goes on scrolling when the row under the finger has gone.
    void cancelTouches(const UIView&);

private:
    using Recognizers = std::vector<std::shared_ptr<UIGestureRecognizer>>;
    struct Finger {
        std::shared_ptr<UITouch> touch;
        Recognizers recognizers;
        bool viewIsTold = true;
    };
    using Deliver = void (UIGestureRecognizer::*)(const UITouches&);
    using DeliverToView = void (UIResponder::*)(const UITouches&);

    /// False where nobody is under it.
    bool addFinger(UIView& root, const HostTouch&, double time);
    void deliver(const std::vector<std::int64_t>& fingers, Deliver, DeliverToView);
    void deliverToRecognizers(const std::vector<std::int64_t>& fingers, Deliver);
    /// What a recognizer is told of these fingers: when they are new, of those on its view, afterwards of
    /// those that it tracks; never of what one of the winners has.
    UITouches touchesFor(const std::shared_ptr<UIGestureRecognizer>&,
        const std::vector<std::int64_t>& fingers, bool areNew, const Recognizers& winners) const;
    void deliverToViews(const std::vector<std::int64_t>& fingers, DeliverToView);
    void giveTouchesTo(const std::shared_ptr<UIGestureRecognizer>& winner);
    bool isGestureGoingOn() const;

    std::map<std::int64_t, Finger> m_fingers;
};

} // namespace velmorath
