#include "UITableView.h"
#include "Bundle.h"
#include "FatalError.h"
#include "Host.h"
#include "UIApplication.h"
#include "UITapGestureRecognizer.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr double updateDuration = 0.3;

/// The place of a row that has been out of sight.
constexpr std::int64_t nowhere = -1;

/// A row that is used for another place shows nothing of what was done to it at its old one.
void forgetLook(UITableViewCell& cell)
{
    UIView::performWithoutAnimation([&] {
        cell.setHidden(false);
        cell.setAlpha(1);
        cell.setTransform(CGAffineTransform::identity());
    });
}

} // namespace

CGFloat UITableViewDelegate::tableViewHeightForRowAtIndexPath(UITableView& table, IndexPath)
{
    return table.rowHeight();
}

UITableView::UITableView(const CGRect& frame)
    : UIScrollView(frame)
{
    const auto tap = std::make_shared<UITapGestureRecognizer>();
    tap->addTarget([this](UIGestureRecognizer& recognizer) {
        handleTap(static_cast<UITapGestureRecognizer&>(recognizer).locationIn(*this));
    });
    addGestureRecognizer(tap);
}

void UITableView::setDelegate(UITableViewDelegate* delegate)
{
    m_delegate = delegate;
    setScrollDelegate(delegate);
}

CGRect UITableView::rectForRow(std::int64_t row) const
{
    return CGRectMake(0, static_cast<CGFloat>(row) * m_rowHeight, bounds().size.width, m_rowHeight);
}

void UITableView::putInPlace(UITableViewCell& cell, std::int64_t row) const
{
    const CGRect rect = rectForRow(row);
    cell.setBounds({{0, 0}, rect.size});
    cell.setCenter(rect.center());
}

UITableView::Rows UITableView::rowsInSight() const
{
    const CGFloat top = contentOffset().y;
    const auto first = static_cast<std::int64_t>(std::floor(top / m_rowHeight));
    const auto end = static_cast<std::int64_t>(std::ceil((top + bounds().size.height) / m_rowHeight));
    return {std::clamp<std::int64_t>(first, 0, m_count), std::clamp<std::int64_t>(end, 0, m_count)};
}

void UITableView::updateContentSize()
{
    setContentSize({bounds().size.width, static_cast<CGFloat>(m_count) * m_rowHeight});
}

std::shared_ptr<UITableViewCell> UITableView::dequeueReusableCell(
    const std::string& identifier, IndexPath path)
{
    auto chosen = m_reusable.end();
    for (auto candidate = m_reusable.begin(); candidate != m_reusable.end(); ++candidate) {
        if (candidate->second->reuseIdentifier() != identifier)
            continue;
        chosen = candidate;
        if (candidate->first == path.row)
            break;
    }
    if (chosen != m_reusable.end()) {
        std::shared_ptr<UITableViewCell> cell = std::move(chosen->second);
        if (chosen->first != path.row)
            forgetLook(*cell);
        m_reusable.erase(chosen);
        return cell;
    }
    const auto maker = m_makers.find(identifier);
    if (maker == m_makers.end())
        fatalError("No row class is registered for the identifier " + identifier);
    return maker->second(UITableViewCellStyle::standard, identifier);
}

void UITableView::reloadData()
{
    endReordering(false);
    m_hasLoaded = true;
    m_deletions.clear();
    m_selectedRow.reset();
    for (const auto& entry : m_rows)
        entry.second->setSelected(false);
    const bool hasRows = m_dataSource && m_dataSource->numberOfSectionsInTableView(*this) > 0;
    m_count = hasRows ? m_dataSource->tableViewNumberOfRowsInSection(*this, 0) : 0;
    if (m_delegate && m_count > 0)
        m_rowHeight = m_delegate->tableViewHeightForRowAtIndexPath(*this, {0, 0});
    updateContentSize();

    std::map<std::int64_t, std::shared_ptr<UITableViewCell>> kept;
    for (const auto& [place, cell] : std::exchange(m_rows, {})) {
        if (place < m_count && mustStay(*cell)) {
            kept.emplace(place, cell);
            putInPlace(*cell, place);
            if (m_delegate)
                m_delegate->tableViewWillDisplayCellForRowAtIndexPath(*this, *cell, {0, place});
        } else {
            m_reusable.emplace_back(place, cell);
        }
    }
    m_rows = std::move(kept);
    setNeedsLayout();
}

void UITableView::layoutSubviews()
{
    if (m_isUpdating)
        return;
    if (!m_hasLoaded)
        reloadData();
    UIScrollView::layoutSubviews();
    if (m_laidOutWidth != bounds().size.width)
        placeAllRows();

    const std::optional<std::int64_t> focused = focusedRow();
    const Rows rows = rowsInSight();
    for (auto entry = m_rows.begin(); entry != m_rows.end();) {
        const bool isInSight = entry->first >= rows.first && entry->first < rows.end;
        if (isInSight || mustStay(*entry->second)) {
            ++entry;
            continue;
        }
        m_reusable.emplace_back(entry->first, entry->second);
        entry = m_rows.erase(entry);
    }
    for (std::int64_t place = rows.first; place < rows.end; ++place) {
        if (!m_rows.contains(place))
            m_rows.emplace(place, makeRow(place));
    }
    if (focused)
        keepFocusInSight(*focused);
    for (auto& [place, cell] : m_reusable) {
        place = nowhere;
        cell->removeFromSuperview();
    }
}

void UITableView::placeAllRows()
{
    m_laidOutWidth = bounds().size.width;
    updateContentSize();
    for (const auto& [place, cell] : m_rows)
        putInPlace(*cell, place);
}

bool UITableView::mustStay(const UITableViewCell& cell) const
{
    if (isReordering(cell))
        return true;
    const auto* responder = dynamic_cast<const UIView*>(UIResponder::current());
    return responder && responder->isDescendantOf(cell);
}

std::int64_t UITableView::dataRow(std::int64_t place) const
{
    if (!m_reordering)
        return place;
    const auto [from, to] = std::pair(m_reordering->from, m_reordering->to);
    if (place == to)
        return from;
    if (from < to && place >= from && place < to)
        return place + 1;
    if (to < from && place > to && place <= from)
        return place - 1;
    return place;
}

std::shared_ptr<UITableViewCell> UITableView::makeRow(std::int64_t place)
{
    const IndexPath path{0, dataRow(place)};
    std::shared_ptr<UITableViewCell> cell = m_dataSource->tableViewCellForRowAtIndexPath(*this, path);
    putInPlace(*cell, place);
    cell->setShowsReorderControl(m_editing && m_dataSource->tableViewCanEditRowAtIndexPath(*this, path));
    cell->setSelected(m_selectedRow == path.row);
    if (m_delegate)
        m_delegate->tableViewWillDisplayCellForRowAtIndexPath(*this, *cell, path);
    if (cell->superview() != this)
        addSubview(cell);
    return cell;
}

std::vector<std::shared_ptr<UITableViewCell>> UITableView::visibleCells()
{
    layoutIfNeeded();
    const Rows rows = rowsInSight();
    std::vector<std::shared_ptr<UITableViewCell>> cells;
    for (const auto& [place, cell] : m_rows) {
        if (place >= rows.first && place < rows.end)
            cells.push_back(cell);
    }
    return cells;
}

std::shared_ptr<UITableViewCell> UITableView::cellForRow(IndexPath path)
{
    layoutIfNeeded();
    const auto found = m_rows.find(path.row);
    return found == m_rows.end() ? nullptr : found->second;
}

std::optional<std::int64_t> UITableView::placeOf(const UIView& view) const
{
    for (const auto& [place, cell] : m_rows) {
        if (cell.get() == &view)
            return place;
    }
    return {};
}

std::int64_t UITableView::rowsOfAPage() const
{
    return std::max<std::int64_t>(1, static_cast<std::int64_t>(bounds().size.height / m_rowHeight) - 1);
}

std::optional<UIAccessibilityInfo> UITableView::accessibilityInfo()
{
    UIAccessibilityInfo info{
        .role = AccessibilityRole::list, .label = accessibilityLabel(), .count = m_count};
    const auto addScroll = [&](std::string_view name, int step) {
        const CGFloat way = step * m_rowHeight * static_cast<CGFloat>(rowsOfAPage());
        const CGPoint target = inside({0, contentOffset().y + way});
        if (step * (target.y - contentOffset().y) > 0)
            info.actions.push_back(
                {Bundle::main().localizedString(name), [this, target] { scrollByReader(target); }});
    };
    addScroll("Scroll down", 1);
    addScroll("Scroll up", -1);
    return info;
}

void UITableView::handleTap(CGPoint point)
{
    const auto row = static_cast<std::int64_t>(std::floor(point.y / m_rowHeight));
    if (row >= 0 && row < m_count)
        selectByUser(row);
}

void UITableView::selectByUser(std::int64_t row)
{
    if (m_editing)
        return;
    select(row);
    if (m_delegate)
        m_delegate->tableViewDidSelectRowAtIndexPath(*this, {0, row});
}

void UITableView::select(std::int64_t row)
{
    const std::optional<std::int64_t> before = std::exchange(m_selectedRow, row);
    for (const auto& [place, cell] : m_rows)
        cell->setSelected(dataRow(place) == row);
    if (before && before != row && m_delegate)
        m_delegate->tableViewDidDeselectRowAtIndexPath(*this, {0, *before});
}

void UITableView::beginUpdates()
{
    m_isUpdating = true;
    endReordering(false);
}

void UITableView::deleteRows(const std::vector<IndexPath>& paths, UITableViewRowAnimation)
{
    for (const IndexPath& path : paths)
        m_deletions.push_back(path.row);
}

void UITableView::endUpdates()
{
    m_isUpdating = false;
    const std::int64_t before = m_count;
    m_count = m_dataSource->tableViewNumberOfRowsInSection(*this, 0);
    if (m_count != before - static_cast<std::int64_t>(m_deletions.size()))
        fatalError("The number of rows after the update does not fit the rows that were deleted");
    applyDeletions();
    updateContentSize();
    UIView::animate(updateDuration, 0, [this] {
        for (const auto& [place, cell] : m_rows)
            putInPlace(*cell, place);
        if (!isDragging() && !isDecelerating())
            UIScrollView::layoutSubviews();
    });

    // Rows that come into sight at the bottom slide up with the others.
    const std::map<std::int64_t, std::shared_ptr<UITableViewCell>> known = m_rows;
    setNeedsLayout();
    layoutIfNeeded();
    const CGFloat way = m_rowHeight * static_cast<CGFloat>(before - m_count);
    for (const auto& [place, cell] : m_rows) {
        if (known.contains(place) || (!known.empty() && place < known.begin()->first))
            continue;
        cell->setCenter(cell->center() + CGVector{0, way});
        UIView::animate(updateDuration, 0, [this, &cell = cell, place = place] { putInPlace(*cell, place); });
    }
}

void UITableView::applyDeletions()
{
    std::sort(m_deletions.begin(), m_deletions.end());
    std::map<std::int64_t, std::shared_ptr<UITableViewCell>> remaining;
    for (const auto& [place, cell] : m_rows) {
        const auto notBefore = std::lower_bound(m_deletions.begin(), m_deletions.end(), place);
        if (notBefore == m_deletions.end() || *notBefore != place) {
            remaining.emplace(place - (notBefore - m_deletions.begin()), cell);
            continue;
        }
        // A row that was deleted fades where it is, and is not used again.
        cell->setUserInteractionEnabled(false);
        UIView::animate(
            updateDuration, 0, [&cell = cell] { cell->setAlpha(0); },
            [weakCell = std::weak_ptr<UITableViewCell>(cell)] {
                if (const auto gone = weakCell.lock())
                    gone->removeFromSuperview();
            });
    }
    m_rows = std::move(remaining);
    if (m_selectedRow) {
        const auto notBefore = std::lower_bound(m_deletions.begin(), m_deletions.end(), *m_selectedRow);
        const bool isGone = notBefore != m_deletions.end() && *notBefore == *m_selectedRow;
        m_selectedRow =
            isGone ? std::nullopt : std::optional(*m_selectedRow - (notBefore - m_deletions.begin()));
    }
    m_deletions.clear();
}

} // namespace velmorath
