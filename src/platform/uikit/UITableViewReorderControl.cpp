#include "UITableViewReorderControl.h"
#include "UITableView.h"
#include "UITouch.h"

namespace velmorath {

namespace {

UITableView* tableAround(const UIView& control)
{
    for (UIView* view = control.superview(); view; view = view->superview()) {
        if (auto* table = dynamic_cast<UITableView*>(view))
            return table;
    }
    return nullptr;
}

UITableViewCell* cellAround(const UIView& control)
{
    return dynamic_cast<UITableViewCell*>(control.superview());
}

/// Nothing while the table drags another row, or none.
UITableView* tableDraggingRowOf(const UIView& control)
{
    UITableView* table = tableAround(control);
    return table && table->isReordering(*cellAround(control)) ? table : nullptr;
}

} // namespace

void UITableViewReorderControl::touchesBegan(const UITouches& touches)
{
    UITableView* table = tableAround(*this);
    if (table)
        table->beginReordering(*cellAround(*this), touches.front()->location().y);
}

void UITableViewReorderControl::touchesMoved(const UITouches& touches)
{
    if (UITableView* table = tableDraggingRowOf(*this))
        table->continueReordering(touches.front()->location().y);
}

void UITableViewReorderControl::touchesEnded(const UITouches&)
{
    if (UITableView* table = tableDraggingRowOf(*this))
        table->endReordering(true);
}

void UITableViewReorderControl::touchesCancelled(const UITouches&)
{
    if (UITableView* table = tableDraggingRowOf(*this))
        table->endReordering(false);
}

void UITableViewReorderControl::draw(CGContext& context) const
{
    constexpr CGFloat lineWidth = 22, thickness = 2, gap = 6;
    const CGFloat x = bounds().midX() - lineWidth / 2;
    for (int line = -1; line <= 1; ++line) {
        const CGFloat y = bounds().midY() + line * gap - thickness / 2;
        context.fill(CGRectMake(x, y, lineWidth, thickness), thickness / 2, CGColor{1, 1, 1, 0.85});
    }
}

} // namespace velmorath
