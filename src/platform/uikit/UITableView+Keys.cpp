#include "Bundle.h"
#include "HostKey.h"
#include "UIApplication.h"
#include "UITableView.h"
#include <algorithm>
#include <cmath>

namespace velmorath {

std::optional<std::int64_t> UITableView::focusedRow() const
{
    const std::shared_ptr<UIView>& focused = UIApplication::shared().focusSystem().focusedView();
    return focused ? placeOf(*focused) : std::nullopt;
}

bool UITableView::keyPressed(const HostKeyPress& press)
{
    const std::optional<std::int64_t> row = focusedRow();
    if (!row)
        return false;
    if (press.key == HostKey::enter || press.key == HostKey::space) {
        selectByUser(*row);
        return true;
    }

    const std::int64_t page = rowsOfAPage();
    std::int64_t target = *row;
    switch (press.key) {
    case HostKey::up:
        target -= 1;
        break;
    case HostKey::down:
        target += 1;
        break;
    case HostKey::pageUp:
        target = std::max<std::int64_t>(0, target - page);
        break;
    case HostKey::pageDown:
        target = std::min(m_count - 1, target + page);
        break;
    case HostKey::home:
        target = 0;
        break;
    case HostKey::end:
        target = m_count - 1;
        break;
    default:
        return false;
    }
    if (target < 0 || target >= m_count)
        return press.alt;
    if (press.alt)
        moveByUser(*row, target);
    else
        focusRow(target);
    return true;
}

void UITableView::focusRow(std::int64_t row)
{
    scrollToRow(row);
    UIApplication::shared().focusSystem().focus(cellForRow({0, row}));
}

std::int64_t UITableView::nearestInSight(std::int64_t row) const
{
    const CGFloat top = contentOffset().y / m_rowHeight;
    const std::int64_t first = std::lround(top);
    const std::int64_t last = std::lround(top + bounds().size.height / m_rowHeight) - 1;
    return std::clamp<std::int64_t>(std::clamp(row, first, std::max(first, last)), 0, m_count - 1);
}

void UITableView::keepFocusInSight(std::int64_t row)
{
    const auto known = m_rows.find(row);
    if (m_count == 0 || (known != m_rows.end() && isHeld(*known->second)))
        return;
    const auto nearest = m_rows.find(nearestInSight(row));
    if (nearest != m_rows.end() && nearest->first != row)
        UIApplication::shared().focusSystem().focus(nearest->second);
}

void UITableView::scrollByReader(CGPoint offset)
{
    const bool hadKeys = focusedRow().has_value();
    setContentOffset(offset);
    layoutIfNeeded();
    if (hadKeys)
        UIApplication::shared().focusSystem().focus(cellForRow({0, nearestInSight(0)}));
}

void UITableView::moveByUser(std::int64_t from, std::int64_t to)
{
    if (from == to || !m_dataSource->tableViewCanEditRowAtIndexPath(*this, {0, from}))
        return;
    m_dataSource->tableViewMoveRowAtIndexPathToIndexPath(*this, {0, from}, {0, to});
    focusRow(to);
    UIApplication::shared().announce(Bundle::main().localizedString(
        "Moved to %1 of %2", {std::to_string(to + 1), std::to_string(m_count)}));
}

} // namespace velmorath
