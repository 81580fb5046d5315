#pragma once

#include "TextInput.h"
#include "UIFont.h"
#include "UIView.h"
#include <optional>
#include <string>

namespace velmorath {

/// How the keyboard looks, on machines that have one on the screen.
enum class UIKeyboardAppearance { standard, dark };
/// What its return key says.
enum class UIReturnKeyType { standard, done };

/// What a text field and a text view have in common: a text that the machine's own editor edits in place
/// while the view is the first responder. A tap makes it that; a tap that it refuses goes on to whatever
/// lies around the view.
class EditingTap;
class UITextEditingView : public UIView, private TextInputClient {
public:
    ~UITextEditingView() override;

    const std::string& text() const { return m_text; }
    /// No text makes the view empty. What is being edited is not changed on the screen.
    void setText(std::optional<std::string>);
    void setTextColor(const CGColor& color) { setDrawn(m_style.color, color); }
    void setFont(const CGFont& font) { setDrawn(m_style.font, font); }
    const CGFont& font() const { return m_style.font; }
    void setTextAlignment(CGTextAlignment alignment) { setDrawn(m_style.alignment, alignment); }
    void setKeyboardAppearance(UIKeyboardAppearance appearance)
    {
        m_traits.darkKeyboard = appearance == UIKeyboardAppearance::dark;
    }
    void setReturnKeyType(UIReturnKeyType type) { m_traits.doneKey = type == UIReturnKeyType::done; }

    bool isEditing() const { return isFirstResponder(); }
    /// Asks whether editing may begin first.
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;

    /// Nothing while it is edited: the machine's editor speaks for itself.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    /// Keeps the machine's editor where the view is shown. Called with each frame while it is edited.
    void placeEditor();

protected:
    enum class Lines { one, many };

    UITextEditingView(const CGRect& frame, Lines);

    virtual bool shouldBeginEditing() { return true; }
    virtual void didBeginEditing() { }
    virtual void didEndEditing() { }
    virtual void didReturn() { }

    const CGTextStyle& style() const { return m_style; }
    /// Where in the view the text is.
    virtual CGRect editingRect() const { return bounds(); }
    /// How far down the text is scrolled while it is not edited.
    virtual CGFloat scrolled() const { return 0; }
    virtual void scrollTo(CGFloat) { }
    void draw(CGContext&) const override;

private:
    friend class EditingTap;

    void textInputDidChange(const std::string& utf8) override { m_text = utf8; }
    void textInputDidReturn() override { didReturn(); }

    std::string m_text;
    CGTextStyle m_style;
    TextInputTraits m_traits;
};

} // namespace velmorath
