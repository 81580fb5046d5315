#pragma once

#include "UITextEditingView.h"

namespace velmorath {

/// Many lines of text that can be edited. They wrap at the view's width and start at its top.
class UITextView : public UITextEditingView {
public:
    explicit UITextView(const CGRect& frame)
        : UITextEditingView(frame, Lines::many)
    {
    }
};

} // namespace velmorath
