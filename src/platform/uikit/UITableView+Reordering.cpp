#include "CATimeline.h"
#include "Host.h"
#include "UITableView.h"

namespace velmorath {

namespace {

constexpr double moveAsideDuration = 0.2;
/// A row held this near to an end of the table scrolls it.
constexpr CGFloat scrollZone = 50;
/// Points a second, at the very edge.
constexpr CGFloat scrollSpeed = 600;

} // namespace

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
    const auto held = std::find_if(
        m_rows.begin(), m_rows.end(), [&](const auto& row) { return row.second.get() == &cell; });
    if (m_reordering || held == m_rows.end())
        return;
    stopDecelerating();
    m_reordering = Reordering{
        held->second, held->first, held->first, cell.center().y - convertFromWindow({0, y}).y, y, 0};
    m_lastReorderingStep = CATimeline::main().frameTime();
    // On top of all others, with a shadow, as if it were lifted.
    addSubview(m_reordering->cell);
    cell.layer().setShadow({{0, 0}, cell.bounds().size}, UIColor::black().withAlpha(0.6), {0, 2}, 8);
    m_reordering->displayLink =
        CATimeline::main().addDisplayLink([this](double now) { scrollWhileReordering(now); });
}

bool UITableView::isReordering(const UITableViewCell& cell) const
{
    return m_reordering && m_reordering->cell.get() == &cell;
}

void UITableView::continueReordering(CGFloat y)
{
    if (!m_reordering)
        return;
    m_reordering->fingerInWindow = y;
    const CGFloat half = m_rowHeight / 2;
    const CGFloat lowest = static_cast<CGFloat>(m_count) * m_rowHeight - half;
    const CGFloat wanted = convertFromWindow({0, y}).y + m_reordering->grip;
    const CGFloat centerY = std::clamp(wanted, half, std::max(half, lowest));
    m_reordering->cell->setCenter({bounds().size.width / 2, centerY});
    const auto place = static_cast<std::int64_t>(std::floor(centerY / m_rowHeight));
    moveDraggedRowTo(std::clamp<std::int64_t>(place, 0, m_count - 1));
}

void UITableView::moveDraggedRowTo(std::int64_t place)
{
    if (place == m_reordering->to)
        return;
    const std::int64_t step = place > m_reordering->to ? 1 : -1;
    UIView::animate(moveAsideDuration, 0, [&] {
        while (m_reordering->to != place) {
            // The row on the way takes the place that the dragged one leaves.
            const std::int64_t left = m_reordering->to;
            m_reordering->to += step;
            const auto passed = m_rows.find(m_reordering->to);
            const std::shared_ptr<UITableViewCell> cell = passed == m_rows.end() ? nullptr : passed->second;
            m_rows[m_reordering->to] = m_reordering->cell;
            m_rows.erase(left);
            if (cell) {
                m_rows[left] = cell;
                putInPlace(*cell, left);
            }
        }
    });
    setNeedsLayout();
}

void UITableView::scrollWhileReordering(double now)
{
    const double seconds = std::min(0.1, now - std::exchange(m_lastReorderingStep, now));
    const CGFloat y = convertFromWindow({0, m_reordering->fingerInWindow}).y - contentOffset().y;
    const CGFloat height = bounds().size.height;
    CGFloat push = 0;
    if (y < scrollZone)
        push = -(scrollZone - y) / scrollZone;
    else if (y > height - scrollZone)
        push = (y - height + scrollZone) / scrollZone;
    if (push == 0)
        return;
    const CGFloat wanted = contentOffset().y + std::clamp(push, -1.0, 1.0) * scrollSpeed * seconds;
    moveContentTo(inside({0, wanted}));
    continueReordering(m_reordering->fingerInWindow);
}

void UITableView::endReordering(bool isDropped)
{
    if (!m_reordering)
        return;
    if (!isDropped)
        moveDraggedRowTo(m_reordering->from);
    const Reordering over = *m_reordering;
    CATimeline::main().removeDisplayLink(over.displayLink);
    m_reordering.reset();

    const CGPoint droppedAt = over.cell->center();
    if (isDropped)
        m_dataSource->tableViewMoveRowAtIndexPathToIndexPath(*this, {0, over.from}, {0, over.to});
    const std::shared_ptr<UITableViewCell> cell = cellForRow({0, over.to});
    over.cell->layer().removeShadow();
    if (!cell)
        return;
    // The row sinks from where it was let go into its place.
    cell->setCenter(droppedAt);
    UIView::animate(moveAsideDuration, 0, [&] { putInPlace(*cell, over.to); });
}

} // namespace velmorath
