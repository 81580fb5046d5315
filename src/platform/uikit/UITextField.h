#pragma once

#include "TextInput.h"
#include "UIControl.h"
#include "UIFont.h"
#include <optional>
#include <string>

namespace velmorath {

class UITextField;

class UITextFieldDelegate {
public:
    virtual ~UITextFieldDelegate() = default;

    virtual bool textFieldShouldBeginEditing(UITextField&) { return true; }
    virtual void textFieldDidBeginEditing(UITextField&) { }
    virtual void textFieldDidEndEditing(UITextField&) { }
    /// Return was pressed. True lets the platform do what it does by itself, which is nothing.
    virtual bool textFieldShouldReturn(UITextField&) { return true; }
};

/// How the keyboard looks, on machines that have one on the screen.
enum class UIKeyboardAppearance { standard, dark };
/// What its return key says.
enum class UIReturnKeyType { standard, done };

/// One line of text that can be edited in place by the machine's own editor. The text stands in the
/// field's vertical middle. While it is the first responder it is being edited; a tap makes it that,
/// and a tap that it refuses goes on to whatever lies around the field.
class UITextField : public UIView, private TextInputClient {
public:
    explicit UITextField(const CGRect& frame);
    ~UITextField() override;

    const std::string& text() const { return m_text; }
    /// No text makes the field empty.
    void setText(std::optional<std::string>);
    void setTextColor(const CGColor&);
    void setFont(const CGFont&);
    const CGFont& font() const { return m_style.font; }
    /// The smallest size that the text may shrink to where it is allowed to shrink.
    CGFloat minimumFontSize() const { return m_minimumFontSize; }
    void setMinimumFontSize(CGFloat size) { m_minimumFontSize = size; }
    void setKeyboardAppearance(UIKeyboardAppearance);
    void setReturnKeyType(UIReturnKeyType);
    void setDelegate(UITextFieldDelegate* delegate) { m_delegate = delegate; }

    bool isEditing() const { return isFirstResponder(); }
    /// Asks the delegate first.
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;

    /// Where the text is drawn, in the field's coordinates: no wider than the field.
    CGRect textRect() const;

    /// Keeps the machine's editor where the field is shown. Called with each frame while it is edited.
    void placeEditor();

protected:
    void draw(CGContext&) const override;

private:
    void textInputDidChange(const std::string& utf8) override;
    void textInputDidReturn() override;

    std::string m_text;
    CGTextStyle m_style;
    CGFloat m_minimumFontSize = 0;
    TextInputTraits m_traits;
    UITextFieldDelegate* m_delegate = nullptr;
};

} // namespace velmorath
