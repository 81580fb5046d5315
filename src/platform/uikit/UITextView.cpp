#include "UITextView.h"
#include "HostKey.h"
#include "UIReadableColumn.h"

namespace velmorath {

namespace {

/// How far an arrow key scrolls, and how much of a page is seen again on the next one.
constexpr CGFloat keyStep = 40;

} // namespace

UITextView::UITextView(const CGRect& frame)
    : UITextEditingView(frame, Lines::many)
    , m_scrollView(std::make_shared<UIScrollView>(CGRect{}))
    , m_shownText(std::make_shared<UILabel>())
{
    m_shownText->setWraps(true);
    m_scrollView->setShowsVerticalScrollIndicator(true);
    m_scrollView->addSubview(m_shownText);
    addSubview(m_scrollView);
}

void UITextView::layoutSubviews()
{
    m_shownText->setText(text());
    m_shownText->setFont(style().font);
    m_shownText->setTextColor(style().color);
    m_shownText->setTextAlignment(style().alignment);
    const CGSize size = bounds().size;
    const CGRect column = editingRect();
    const CGFloat height =
        std::max(column.size.height, std::ceil(m_shownText->heightFitting(column.size.width)));
    m_scrollView->setFrame({{0, 0}, size});
    m_shownText->setFrame({column.origin, {column.size.width, height}});
    m_scrollView->setContentSize({size.width, height + 2 * m_inset});
    m_scrollView->setScrollEnabled(height > column.size.height);
}

CGRect UITextView::editingRect() const
{
    return readableColumn(bounds().insetBy(m_inset, m_inset));
}

void UITextView::didEndEditing()
{
    m_scrollView->setHidden(false);
    setNeedsLayout();
}

void UITextView::scrollTo(CGFloat offset)
{
    layoutIfNeeded();
    const CGFloat furthest = m_scrollView->contentSize().height - bounds().size.height;
    m_scrollView->setContentOffset({0, std::clamp(offset, 0.0, std::max(0.0, furthest))});
}

bool UITextView::scrollBy(CGFloat way)
{
    const CGPoint before = m_scrollView->contentOffset();
    m_scrollView->scrollByWheel({0, -way});
    return m_scrollView->contentOffset() != before;
}

bool UITextView::keyPressed(const HostKeyPress& press)
{
    const CGFloat page = std::max(keyStep, bounds().size.height - keyStep);
    const CGFloat everything = m_scrollView->contentSize().height;
    switch (press.key) {
    case HostKey::enter:
    case HostKey::edit:
        return becomeFirstResponder();
    case HostKey::up:
        return scrollBy(-keyStep);
    case HostKey::down:
        return scrollBy(keyStep);
    case HostKey::pageUp:
        return scrollBy(-page);
    case HostKey::pageDown:
    case HostKey::space:
        return scrollBy(page);
    case HostKey::home:
        return scrollBy(-everything);
    case HostKey::end:
        return scrollBy(everything);
    default:
        return false;
    }
}

} // namespace velmorath
