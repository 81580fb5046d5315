#pragma once

#include "UITextEditingView.h"

namespace velmorath {

/// Many lines of text that can be edited. They wrap at the view's width and start at its top. Enter starts
/// the editing when keys are pointed at it.
class UITextView : public UITextEditingView {
public:
    explicit UITextView(const CGRect& frame)
        : UITextEditingView(frame, Lines::many)
    {
    }

    bool canBecomeFocused() const override { return true; }
    bool keyPressed(const HostKeyPress&) override;

protected:
    void didReturn() override { resignFirstResponder(); }
};

} // namespace velmorath
