#include "UITextEditingView.h"
#include "CATimeline.h"
#include "Host.h"
#include "UIApplication.h"
#include "UITapGestureRecognizer.h"
#include <algorithm>

namespace velmorath {

/// A tap that starts the editing of its view, and fails where the view refuses, so that others get it.
class EditingTap : public UITapGestureRecognizer {
public:
    void touchesEnded(const UITouches& ended) override
    {
        if (state() == State::possible && !startEditing(*ended.front()))
            fail();
        UITapGestureRecognizer::touchesEnded(ended);
    }

private:
    bool startEditing(const UITouch& touch) const
    {
        auto& text = static_cast<UITextEditingView&>(*view());
        const CGPoint place = text.convertFromWindow(touch.location());
        const CGPoint corner = text.editingRect().origin;
        text.m_traits.tap = CGPoint{place.x - corner.x, place.y - corner.y};
        const bool begins = text.becomeFirstResponder();
        text.m_traits.tap.reset();
        return begins;
    }
};

UITextEditingView::UITextEditingView(const CGRect& frame, Lines lines)
    : UIView(frame)
{
    m_traits.multiline = lines == Lines::many;
    m_style.wraps = m_traits.multiline;
    addGestureRecognizer(std::make_shared<EditingTap>());
}

UITextEditingView::~UITextEditingView()
{
    if (!isEditing())
        return;
    setCurrent(nullptr);
    UIApplication::shared().textEditingEnded();
    Host::current().textInput().end();
}

void UITextEditingView::setText(std::optional<std::string> text)
{
    if (setDrawn(m_text, std::move(text).value_or("")))
        setNeedsLayout();
}

bool UITextEditingView::becomeFirstResponder()
{
    if (isFirstResponder())
        return true;
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    if (!shouldBeginEditing() || !UIView::becomeFirstResponder())
        return false;
    // Ending another view's editing may have taken this one off the screen, or what it shows away.
    if (!canBeUsed()) {
        setCurrent(nullptr);
        return false;
    }
    UIApplication::shared().textEditingBegan(*this);
    m_traits.label = accessibilityLabel();
    m_traits.scrolled = scrolled();
    Host::current().textInput().begin(*this, m_text, m_style, m_traits);
    setNeedsDisplay();
    didBeginEditing();
    return true;
}

bool UITextEditingView::resignFirstResponder()
{
    if (!isFirstResponder())
        return true;
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    const CGFloat scrolled = Host::current().textInput().scrolled();
    Host::current().textInput().end();
    setCurrent(nullptr);
    UIApplication::shared().textEditingEnded();
    setNeedsDisplay();
    // A table kept the row for the sake of the editing; now it may be out of sight.
    for (UIView* around = superview(); around; around = around->superview())
        around->setNeedsLayout();
    didEndEditing();
    scrollTo(scrolled);
    return true;
}

std::optional<UIAccessibilityInfo> UITextEditingView::accessibilityInfo()
{
    if (isEditing())
        return {};
    const auto role = m_traits.multiline ? AccessibilityRole::textArea : AccessibilityRole::textField;
    return UIAccessibilityInfo{{.role = role, .label = accessibilityLabel(), .value = m_text},
        [this] { return becomeFirstResponder(); }};
}

void UITextEditingView::placeEditor()
{
    CGFloat opacity = 1;
    for (const UIView* view = this; view; view = view->superview())
        opacity *= view->layer().presented(CATimeline::main().frameTime()).opacity;
    CGRect clip = clipInWindow();
    // Many lines scroll out over the margins of their view.
    if (m_traits.multiline)
        clip = clip.intersected(shownInWindow(bounds()));
    Host::current().textInput().place(
        shownInWindow(editingRect()), clip.isEmpty() ? CGRect{} : clip, std::clamp(opacity, 0.0, 1.0));
}

void UITextEditingView::draw(CGContext& context) const
{
    if (!isEditing())
        context.drawText(m_text, editingRect(), m_style);
}

} // namespace velmorath
