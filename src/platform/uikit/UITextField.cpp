#include "UITextField.h"
#include "CATimeline.h"
#include "Host.h"
#include "UIApplication.h"
#include "UITapGestureRecognizer.h"

namespace velmorath {

namespace {

/// A tap that begins only when the field accepts to be edited, so that others get the taps it refuses.
class EditingTap : public UITapGestureRecognizer {
protected:
    bool shouldBegin() override { return view()->becomeFirstResponder(); }
};

} // namespace

UITextField::UITextField(const CGRect& frame)
    : UIView(frame)
{
    addGestureRecognizer(std::make_shared<EditingTap>());
}

UITextField::~UITextField()
{
    if (isEditing()) {
        setCurrent(nullptr);
        UIApplication::shared().textEditingEnded();
        Host::current().textInput().end();
    }
}

void UITextField::setText(std::optional<std::string> text)
{
    std::string shown = std::move(text).value_or("");
    if (m_text == shown)
        return;
    m_text = std::move(shown);
    setNeedsDisplay();
}

void UITextField::setTextColor(const CGColor& color)
{
    m_style.color = color;
    setNeedsDisplay();
}

void UITextField::setFont(const CGFont& font)
{
    m_style.font = font;
    setNeedsDisplay();
}

void UITextField::setKeyboardAppearance(UIKeyboardAppearance appearance)
{
    m_traits.darkKeyboard = appearance == UIKeyboardAppearance::dark;
}

void UITextField::setReturnKeyType(UIReturnKeyType type)
{
    m_traits.doneKey = type == UIReturnKeyType::done;
}

bool UITextField::becomeFirstResponder()
{
    if (isFirstResponder())
        return true;
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    if (m_delegate && !m_delegate->textFieldShouldBeginEditing(*this))
        return false;
    if (!UIView::becomeFirstResponder())
        return false;
    // Ending another field's editing may have taken this field off the screen.
    if (!window()) {
        setCurrent(nullptr);
        return false;
    }
    UIApplication::shared().textEditingBegan(*this);
    Host::current().textInput().begin(*this, m_text, m_style, m_traits);
    setNeedsDisplay();
    if (m_delegate)
        m_delegate->textFieldDidBeginEditing(*this);
    return true;
}

bool UITextField::resignFirstResponder()
{
    if (!isFirstResponder())
        return true;
    const std::shared_ptr<UIView> keepAlive = shared_from_this();
    Host::current().textInput().end();
    setCurrent(nullptr);
    UIApplication::shared().textEditingEnded();
    setNeedsDisplay();
    if (m_delegate)
        m_delegate->textFieldDidEndEditing(*this);
    return true;
}

CGRect UITextField::textRect() const
{
    const CGTextMetrics metrics = Host::current().screen().measure(m_text, m_style.font);
    const CGFloat width = std::min(metrics.size.width, bounds().size.width);
    const CGFloat x = metrics.readsFromTheRight ? bounds().maxX() - width : bounds().minX();
    return CGRectMake(x, bounds().midY() - metrics.size.height / 2, width, metrics.size.height);
}

void UITextField::placeEditor()
{
    CGFloat opacity = 1;
    for (const UIView* view = this; view; view = view->superview())
        opacity *= view->layer().presented(CATimeline::main().frameTime()).opacity;
    Host::current().textInput().place(shownInWindow(bounds()), clipInWindow(), opacity);
}

void UITextField::draw(CGContext& context) const
{
    if (!isEditing() && !m_text.empty())
        context.drawText(m_text, bounds(), m_style);
}

void UITextField::textInputDidChange(const std::string& utf8)
{
    m_text = utf8;
}

void UITextField::textInputDidReturn()
{
    if (m_delegate)
        m_delegate->textFieldShouldReturn(*this);
}

} // namespace velmorath
