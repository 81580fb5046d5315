#pragma once

#include "CALayer.h"
#include "UIAccessibilityInfo.h"
#include "UIColor.h"
#include "UIResponder.h"
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

namespace velmorath {

class UIGestureRecognizer;
class UIViewController;
class UIWindow;

/// Which of a view's margins and sides follow when its superview changes its size.
struct UIViewAutoresizing {
    static constexpr unsigned flexibleLeftMargin = 1;
    static constexpr unsigned flexibleWidth = 2;
    static constexpr unsigned flexibleRightMargin = 4;
    static constexpr unsigned flexibleTopMargin = 8;
    static constexpr unsigned flexibleHeight = 16;
    static constexpr unsigned flexibleBottomMargin = 32;
};

/// A rectangle on the screen that draws, holds other views and takes touches. A view is owned by its
/// superview and by whoever made it.
class UIView : public UIResponder, public std::enable_shared_from_this<UIView>, private CALayerDelegate {
public:
    explicit UIView(const CGRect& frame = {});
    ~UIView() override;
    UIView(const UIView&) = delete;
    UIView& operator=(const UIView&) = delete;

    /// Runs the changes so that what they change moves to its new state over the duration, after the
    /// delay (seconds). The completion runs when the time is over.
    static void animate(double duration, double delay, const std::function<void()>& changes,
        std::function<void()> completion = {});
    /// Runs changes that show at once, even inside an animation.
    static void performWithoutAnimation(const std::function<void()>& changes) { changeWith({}, changes); }

    /// In the superview's coordinates; derived from centre, bounds and transform.
    CGRect frame() const { return m_layer->frame(); }
    void setFrame(const CGRect&);
    const CGRect& bounds() const { return m_layer->bounds(); }
    void setBounds(const CGRect&);
    CGPoint center() const { return m_layer->position(); }
    void setCenter(CGPoint center) { m_layer->setPosition(center); }
    const CGAffineTransform& transform() const { return m_layer->transform(); }
    void setTransform(const CGAffineTransform& transform) { m_layer->setTransform(transform); }

    CGFloat alpha() const { return m_layer->opacity(); }
    void setAlpha(CGFloat alpha) { m_layer->setOpacity(alpha); }
    bool isHidden() const { return m_layer->isHidden(); }
    void setHidden(bool hidden) { m_layer->setHidden(hidden); }
    const CGColor& backgroundColor() const { return m_layer->backgroundColor(); }
    void setBackgroundColor(const CGColor& color) { m_layer->setBackgroundColor(color); }
    void setClipsToBounds(bool clips) { m_layer->setMasksToBounds(clips); }
    bool isUserInteractionEnabled() const { return m_userInteractionEnabled; }
    void setUserInteractionEnabled(bool enabled) { m_userInteractionEnabled = enabled; }
    void setAutoresizingMask(unsigned mask) { m_autoresizingMask = mask; }
    /// A number to know the view by.
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }
    CALayer& layer() { return *m_layer; }
    const CALayer& layer() const { return *m_layer; }

    UIView* superview() const { return m_superview; }
    const std::vector<std::shared_ptr<UIView>>& subviews() const { return m_subviews; }
    virtual UIWindow* window() { return m_superview ? m_superview->window() : nullptr; }
    /// The view, or one that it is in, came into a window or left it.
    virtual void didMoveToWindow() { }
    bool isDescendantOf(const UIView&) const;
    /// On top. One that is in this view already is raised, and stays in the window.
    void addSubview(std::shared_ptr<UIView>);
    /// An index beyond the end means on top.
    void insertSubview(std::shared_ptr<UIView>, std::size_t index);
    /// Ends what is edited in it and takes the touches on it away: they go with the view.
    void removeFromSuperview();
    /// Makes whatever is typed into, in this view or below it, end. False when it refuses.
    bool endEditing();

    /// The topmost view under a point of this view's coordinates, by model values.
    virtual std::shared_ptr<UIView> hitTest(CGPoint);
    /// Between this view's coordinates and the window's, by model values.
    CGPoint convertToWindow(CGPoint) const;
    CGPoint convertFromWindow(CGPoint) const;
    /// Where a rectangle of this view is shown in the window at the current frame.
    CGRect shownInWindow(const CGRect&) const;
    /// The part of the window that the views around this one let through.
    CGRect clipInWindow() const;

    void setNeedsLayout();
    /// Lays out this view and the ones in it, where needed.
    void layoutIfNeeded();
    /// Puts the subviews in place. Overrides call the base class's version.
    virtual void layoutSubviews() { }
    /// The controller whose whole view this is: told after each layout. Null when there is none.
    void setViewController(UIViewController* controller) { m_viewController = controller; }
    void setNeedsDisplay() { m_layer->setNeedsDisplay(); }

    void addGestureRecognizer(std::shared_ptr<UIGestureRecognizer>);
    const std::vector<std::shared_ptr<UIGestureRecognizer>>& gestureRecognizers() const
    {
        return m_gestureRecognizers;
    }
    /// Whether one of the recognizers here, or in what is in it, follows its fingers just now.
    bool hasGestureGoingOn() const;
    /// Whether it is in a window and neither hidden nor closed to the user, nor in something that is.
    bool canBeUsed();
    /// Whether keys can be pointed at this view.
    virtual bool canBecomeFocused() const { return false; }
    UIViewController* viewController() const { return m_viewController; }

    /// What this is to those who do not see it; nothing when only what is in it counts. A controller's view
    /// that has a name is a screen.
    virtual std::optional<UIAccessibilityInfo> accessibilityInfo();
    /// Neither this nor anything in it counts for them.
    virtual bool isHiddenFromAccessibility() const { return false; }
    /// Its name for them, in the user's language, where what it shows does not say it.
    const std::string& accessibilityLabel() const { return m_accessibilityLabel; }
    void setAccessibilityLabel(std::string label) { m_accessibilityLabel = std::move(label); }

    /// A gesture of one of its recognizers is over.
    virtual void gestureEnded() { }

protected:
    /// Sets something that draw() draws. Returns whether that is a change.
    template <typename T> bool setDrawn(T& member, std::type_identity_t<T> value)
    {
        if (member == value)
            return false;
        member = std::move(value);
        setNeedsDisplay();
        return true;
    }

private:
    /// Out of the superview and out of its layer, and nothing else.
    void detach();
    static void changeWith(std::optional<CAAnimationTiming>, const std::function<void()>& changes);
    void tellMovedToWindow();
    void sizeChanged(CGSize before);
    /// The superview has grown by this.
    void autoresize(CGFloat wider, CGFloat higher);

    std::shared_ptr<CALayer> m_layer;
    UIView* m_superview = nullptr;
    UIViewController* m_viewController = nullptr;
    std::vector<std::shared_ptr<UIView>> m_subviews;
    std::vector<std::shared_ptr<UIGestureRecognizer>> m_gestureRecognizers;
    std::string m_accessibilityLabel;
    unsigned m_autoresizingMask = 0;
    int m_tag = 0;
    bool m_userInteractionEnabled = true;
    bool m_needsLayout = true;
};

} // namespace velmorath
