#include "UITableViewReordering.h"
#include "CATimeline.h"
#include "UITableView.h"
#include <algorithm>
#include <cmath>

namespace velmorath {

namespace {

/// A row held this near to an end of the table scrolls it.
constexpr CGFloat scrollZone = 50;
/// Points a second, at the very edge.
constexpr CGFloat greatestSpeed = 600;

/// Where a row is when one has gone from its place to another.
std::int64_t placeAfterMove(std::int64_t place, std::int64_t from, std::int64_t to)
{
    if (place == from)
        return to;
    return place - (from < place && place <= to ? 1 : 0) + (to <= place && place < from ? 1 : 0);
}

} // namespace

UITableViewReordering::UITableViewReordering(
    UITableView& table, std::shared_ptr<UITableViewCell> cell, std::int64_t place, CGFloat y)
    : m_table(table)
    , m_cell(std::move(cell))
    , m_from(place)
    , m_to(place)
    , m_finger(y)
    , m_grip(m_cell->center().y - table.convertFromWindow({0, y}).y)
{
    scrollWhereWanted();
}

std::int64_t UITableViewReordering::dataRow(std::int64_t place) const
{
    return placeAfterMove(place, m_to, m_from);
}

std::int64_t UITableViewReordering::placeOfDataRow(std::int64_t row) const
{
    return placeAfterMove(row, m_from, m_to);
}

void UITableViewReordering::rowDeleted(std::int64_t row, std::int64_t place)
{
    if (row < m_from)
        --m_from;
    if (place < m_to)
        --m_to;
}

void UITableViewReordering::moveTo(CGFloat y)
{
    m_finger = y;
    contentMoved();
}

void UITableViewReordering::contentMoved()
{
    const CGFloat height = m_table.rowHeight();
    const CGFloat half = height / 2;
    const CGFloat lowest = static_cast<CGFloat>(m_table.numberOfRows()) * height - half;
    const CGFloat wanted = m_table.convertFromWindow({0, m_finger}).y + m_grip;
    const CGFloat centerY = std::clamp(wanted, half, std::max(half, lowest));
    m_cell->setCenter({m_table.bounds().size.width / 2, centerY});
    const auto place = static_cast<std::int64_t>(std::floor(centerY / height));
    moveRowTo(std::clamp<std::int64_t>(place, 0, m_table.numberOfRows() - 1));
    scrollWhereWanted();
}

void UITableViewReordering::moveRowTo(std::int64_t place)
{
    if (place == m_to)
        return;
    const std::int64_t step = place > m_to ? 1 : -1;
    UIView::animate(moveAsideDuration, 0, [&] {
        while (m_to != place) {
            // The row on the way takes the place that the dragged one leaves.
            m_table.swapRows(m_to, m_to + step);
            m_to += step;
        }
    });
}

CGFloat UITableViewReordering::scrollSpeed() const
{
    const CGFloat y = m_table.convertFromWindow({0, m_finger}).y - m_table.contentOffset().y;
    const CGFloat height = m_table.bounds().size.height;
    CGFloat push = 0;
    if (y < scrollZone)
        push = -(scrollZone - y) / scrollZone;
    else if (y > height - scrollZone)
        push = (y - height + scrollZone) / scrollZone;
    return std::clamp(push, -1.0, 1.0) * greatestSpeed;
}

void UITableViewReordering::scrollWhereWanted()
{
    const CGFloat speed = scrollSpeed();
    const CGFloat offset = m_table.contentOffset().y;
    // A content that springs back to its place by itself is left to do so.
    const bool canScroll = m_table.inside({0, offset + std::copysign(1, speed)}).y != offset;
    if (speed == 0 || !canScroll || m_table.isDecelerating()) {
        m_scrolling.invalidate();
    } else if (!m_scrolling.isRunning()) {
        m_lastStep = CATimeline::main().frameTime();
        m_scrolling = CADisplayLink([this](double now) { scroll(now); });
    }
}

void UITableViewReordering::scroll(double now)
{
    scrollWhereWanted();
    if (!m_scrolling.isRunning())
        return;
    const double seconds = std::min(0.1, now - std::exchange(m_lastStep, now));
    m_table.moveContentTo(m_table.inside({0, m_table.contentOffset().y + scrollSpeed() * seconds}));
}

} // namespace velmorath
