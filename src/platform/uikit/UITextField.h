#pragma once

#include "UITextEditingView.h"

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

/// One line of text that can be edited. It stands in the field's vertical middle.
class UITextField : public UITextEditingView {
public:
    explicit UITextField(const CGRect& frame)
        : UITextEditingView(frame, Lines::one)
    {
    }

    /// Texts do not shrink here; this says how small they may become where they do.
    void setMinimumFontSize(CGFloat) { }
    /// How much of the field's right end its text keeps off.
    void setRightInset(CGFloat inset) { setDrawn(m_rightInset, inset); }
    void setDelegate(UITextFieldDelegate& delegate) { m_delegate = &delegate; }

    /// Where the text is drawn, in the field's coordinates: no wider than there is room.
    CGRect textRect() const;

protected:
    bool shouldBeginEditing() override { return m_delegate->textFieldShouldBeginEditing(*this); }
    void didBeginEditing() override { m_delegate->textFieldDidBeginEditing(*this); }
    void didEndEditing() override { m_delegate->textFieldDidEndEditing(*this); }
    void didReturn() override { m_delegate->textFieldShouldReturn(*this); }
    CGRect editingRect() const override;

private:
    inline static UITextFieldDelegate s_nobody;

    CGFloat m_rightInset = 0;
    UITextFieldDelegate* m_delegate = &s_nobody;
};

} // namespace velmorath
