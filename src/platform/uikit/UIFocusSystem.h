#pragma once

#include "CALayer.h"
#include "UIView.h"
#include <memory>
#include <vector>

namespace velmorath {

class UIWindow;

/// Where keys go while no text is edited: to one view of the screen on top, and from there outwards until
/// somebody can use them. A ring marks the view as long as keys are used and no finger is.
class UIFocusSystem {
public:
    UIFocusSystem();

    /// False when nobody could use the key.
    bool keyPressed(UIWindow&, const HostKeyPress&);

    const std::shared_ptr<UIView>& focusedView() const { return m_focused; }
    void focus(std::shared_ptr<UIView>);
    /// As the user does it: the next key acts there.
    void focusByUser(UIWindow&, std::shared_ptr<UIView>);
    /// Points the keys at the innermost view around this one that they can be pointed at.
    void focusAround(UIView&);
    /// A finger came down: nothing is marked until the next key. A key that cannot be taken back only
    /// marks what it would act on, as long as the user cannot know where keys go.
    void hideRing();
    /// Keeps the ring where its view is shown. Called with each frame. A view that has gone leaves the
    /// focus to its neighbour.
    void update(UIWindow&);

private:
    bool useKey(UIWindow&, const HostKeyPress&, const std::shared_ptr<UIView>& start);
    /// False past the end, unless it goes round: the key is for what lies around the screen then, and the
    /// next one comes in again.
    bool moveFocus(UIWindow&, bool forward, bool goesRound);
    void bringIntoSight() const;
    void replaceLostFocus(UIView& screen);
    void focusNearestTo(CGPoint, UIView& screen);
    void placeRing(UIWindow&);

    std::shared_ptr<UIView> m_focused;
    /// Where the user knows the keys to go: what was pointed at, or had the ring in a frame.
    std::weak_ptr<UIView> m_known;
    /// Where the focused view was last, in the window.
    CGRect m_place = CGRect::null();
    /// Where the focus was on screens that another one covers.
    struct Left {
        std::weak_ptr<UIView> screen;
        CGPoint place;
    };
    std::vector<Left> m_left;
    std::shared_ptr<UIView> m_lastScreen;
    std::shared_ptr<CALayer> m_ring;
    std::shared_ptr<CALayer> m_innerRing;
    bool m_ringIsWanted = false;
};

} // namespace velmorath
