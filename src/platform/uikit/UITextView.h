#pragma once

#include "UILabel.h"
#include "UIScrollView.h"
#include "UITextEditingView.h"

namespace velmorath {

/// Many lines of text that can be read and edited. They wrap at the view's width and start at its top; what
/// does not fit is scrolled to. Enter starts the editing when keys are pointed at it.
class UITextView : public UITextEditingView {
public:
    explicit UITextView(const CGRect& frame);

    /// Points between the text and the view's edges, in the part of the view that is easy to read.
    void setTextContainerInset(CGFloat inset) { m_inset = inset; }

    bool canBecomeFocused() const override { return true; }
    bool keyPressed(const HostKeyPress&) override;
    void layoutSubviews() override;

protected:
    CGRect editingRect() const override;
    void didBeginEditing() override { m_scrollView->setHidden(true); }
    void didEndEditing() override;
    void didReturn() override { resignFirstResponder(); }
    CGFloat scrolled() const override { return m_scrollView->contentOffset().y; }
    void scrollTo(CGFloat offset) override;
    /// The text is drawn by what scrolls.
    void draw(CGContext&) const override { }

private:
    bool scrollBy(CGFloat way);

    CGFloat m_inset = 0;
    /// Shows the text while the machine's editor does not.
    std::shared_ptr<UIScrollView> m_scrollView;
    std::shared_ptr<UILabel> m_shownText;
};

} // namespace velmorath
