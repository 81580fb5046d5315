#include "UITableViewReorderControl.h"
#include "UITableView.h"
#include "UITouch.h"

namespace velmorath {

namespace {

/// Nothing when the handle was taken away under the finger.
UITableViewCell* cellAround(const UIView& control)
{
    return static_cast<UITableViewCell*>(control.superview());
}

/// Nothing while the table drags another row, or none.
UITableView* tableDraggingRowOf(const UIView& control)
{
    const UITableViewCell* cell = cellAround(control);
    UITableView* table = cell ? cell->table() : nullptr;
    return table && table->isReordering(*cell) ? table : nullptr;
}

} // namespace

void UITableViewReorderControl::touchesBegan(const UITouches& touches)
{
    UITableViewCell* cell = cellAround(*this);
    if (UITableView* table = cell ? cell->table() : nullptr)
        table->beginReordering(*cell, touches.front()->location().y);
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
