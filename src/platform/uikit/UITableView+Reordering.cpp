#include "UITableView.h"

namespace velmorath {

void UITableView::setEditing(bool editing)
{
    if (m_editing == editing)
        return;
    endReordering(false);
    m_editing = editing;
    for (const auto& [place, cell] : m_rows)
        cell->setShowsReorderControl(
            editing && m_dataSource->tableViewCanEditRowAtIndexPath(*this, {0, place}));
}

void UITableView::beginReordering(UITableViewCell& cell, CGFloat y)
{
    const std::optional<std::int64_t> place = placeOf(cell);
    if (m_reordering || !place)
        return;
    // What springs back to its place may get there.
    if (inside(contentOffset()) == contentOffset())
        stopDecelerating();
    const std::shared_ptr<UITableViewCell> lifted = m_rows.at(*place);
    // On top of all others, with a shadow, as if it were lifted.
    addSubview(lifted);
    lifted->layer().setShadow(
        CAShadow{{{0, 0}, cell.bounds().size}, UIColor::black().withAlpha(0.6), {0, 2}, 8});
    m_reordering.emplace(*this, lifted, *place, y);
}

void UITableView::continueReordering(CGFloat y)
{
    if (m_reordering)
        m_reordering->moveTo(y);
}

void UITableView::endReordering(bool isDropped)
{
    if (!m_reordering)
        return;
    if (!isDropped)
        m_reordering->goBack();
    const std::shared_ptr<UITableViewCell> cell = m_reordering->cell();
    const auto [from, to] = std::pair(m_reordering->from(), m_reordering->to());
    m_reordering.reset();
    cell->layer().setShadow({});
    // The row sinks from where it was let go into its place.
    UIView::animate(UITableViewReordering::moveAsideDuration, 0, [&, to = to] { putInPlace(*cell, to); });
    if (isDropped)
        m_dataSource->tableViewMoveRowAtIndexPathToIndexPath(*this, {0, from}, {0, to});
}

void UITableView::swapRows(std::int64_t place, std::int64_t otherPlace)
{
    for (const auto& [cell, newPlace] :
        {std::pair(cellForRow({0, place}), otherPlace), std::pair(cellForRow({0, otherPlace}), place)}) {
        if (!cell) {
            m_rows.erase(newPlace);
            continue;
        }
        m_rows[newPlace] = cell;
        putInPlaceUnlessHeld(cell, newPlace);
    }
    setNeedsLayout();
}

} // namespace velmorath
