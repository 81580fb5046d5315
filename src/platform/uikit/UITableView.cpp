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

UITableView::UITableView(const CGRect& frame)
    : UIScrollView(frame)
{
    const auto tap = std::make_shared<UITapGestureRecognizer>();
    tap->addTarget([this](UIGestureRecognizer& recognizer) {
        const CGPoint point = static_cast<UITapGestureRecognizer&>(recognizer).locationIn(*this);
        const auto row = static_cast<std::int64_t>(std::floor(point.y / m_rowHeight));
        layoutIfNeeded();
        if (cellForRow({0, row}))
            selectByUser(row);
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

std::pair<std::int64_t, std::int64_t> UITableView::rowsInSight() const
{
    const CGFloat top = contentOffset().y;
    const auto first = static_cast<std::int64_t>(std::floor(top / m_rowHeight));
    const auto last = static_cast<std::int64_t>(std::ceil((top + bounds().size.height) / m_rowHeight));
    // One row is there even where the window leaves no height: so that a note can be typed in any window.
    const std::int64_t end = std::max(first + 1, last);
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
        const auto [place, cell] = std::move(*chosen);
        m_reusable.erase(chosen);
        if (place != path.row) {
            UIApplication::shared().cancelTouches(*cell);
            forgetLook(*cell);
        }
        return cell;
    }
    const auto maker = m_makers.find(identifier);
    if (maker == m_makers.end())
        fatalError("No row class is registered for the identifier " + identifier);
    return maker->second(UITableViewCellStyle::standard, identifier);
}

void UITableView::reloadData()
{
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

    if (m_reordering && std::max(m_reordering->from(), m_reordering->to()) >= m_count)
        endReordering(false);

    for (const auto& [place, cell] : std::exchange(m_rows, {})) {
        if (place < m_count && isHeld(*cell)) {
            m_rows.emplace(place, cell);
            m_behind.insert(cell);
        } else {
            m_reusable.emplace_back(place, cell);
        }
    }
    setNeedsLayout();
}

void UITableView::layoutSubviews()
{
    if (m_isUpdating)
        return;
    if (!m_hasLoaded)
        reloadData();
    UIScrollView::layoutSubviews();
    if (std::exchange(m_laidOutWidth, bounds().size.width) != bounds().size.width) {
        updateContentSize();
        for (const auto& [place, cell] : m_rows)
            putInPlaceUnlessHeld(cell, place);
    }

    takeBackHeldRows();
    if (m_reordering)
        m_reordering->contentMoved();

    const std::optional<std::int64_t> focused = focusedRow();
    const auto [first, end] = rowsInSight();
    for (auto entry = m_rows.begin(); entry != m_rows.end();) {
        const bool isInSight = entry->first >= first && entry->first < end;
        if (isInSight || isHeld(*entry->second)) {
            ++entry;
            continue;
        }
        m_reusable.emplace_back(entry->first, entry->second);
        entry = m_rows.erase(entry);
    }
    makeUpForRowsLetGo();
    for (std::int64_t place = first; place < end; ++place) {
        if (!m_rows.contains(place))
            m_rows.emplace(place, makeRow(place));
    }
    if (focused)
        keepFocusInSight(*focused);
    takeRowsOutOfUse();
}

void UITableView::takeBackHeldRows()
{
    std::erase_if(m_reusable, [this](const auto& entry) {
        const auto& [place, cell] = entry;
        if (place < 0 || place >= m_count || !isHeld(*cell) || !m_rows.emplace(place, cell).second)
            return false;
        m_behind.insert(cell);
        return true;
    });
}

void UITableView::makeUpForRowsLetGo()
{
    const auto rows = m_rows;
    for (const auto& [place, cell] : rows) {
        if (isHeld(*cell) || m_behind.erase(cell) == 0)
            continue;
        // As if the data were reloaded only now. How far it was swiped aside is not the table's to change.
        const CGPoint before = cell->center();
        const CGFloat aside = before.x - cell->bounds().midX();
        m_rows.erase(place);
        m_reusable.emplace_back(place, cell);
        const std::shared_ptr<UITableViewCell> again = makeRow(place);
        m_rows.emplace(place, again);
        const CGPoint now = again->center() + CGVector{aside, 0};
        if (now == before)
            continue;
        again->setCenter(before);
        UIView::animate(updateDuration, 0, [&] { again->setCenter(now); });
    }
}

void UITableView::takeRowsOutOfUse()
{
    // Taking a row away may end a gesture on it, and whoever hears of that may ask for rows.
    const auto unused = m_reusable;
    for (auto& [place, cell] : m_reusable) {
        place = nowhere;
        m_behind.erase(cell);
    }
    for (const auto& [place, cell] : unused)
        cell->removeFromSuperview();
}

void UITableView::putInPlaceUnlessHeld(const std::shared_ptr<UITableViewCell>& cell, std::int64_t place)
{
    if (!isHeld(*cell)) {
        putInPlace(*cell, place);
        return;
    }
    m_behind.insert(cell);
    if (cell->hasGestureGoingOn())
        return;
    // What is typed into a row is read there: it is as wide as the table at any time.
    cell->setBounds({{0, 0}, rectForRow(place).size});
    cell->setCenter({rectForRow(place).midX(), cell->center().y});
}

bool UITableView::isHeld(const UITableViewCell& cell)
{
    const auto* responder = dynamic_cast<const UIView*>(UIResponder::current());
    return cell.hasGestureGoingOn() || (responder && responder->isDescendantOf(cell));
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

std::vector<std::shared_ptr<UITableViewCell>> UITableView::visibleCells() const
{
    std::vector<std::shared_ptr<UITableViewCell>> cells;
    for (const auto& entry : m_rows)
        cells.push_back(entry.second);
    return cells;
}

std::shared_ptr<UITableViewCell> UITableView::cellForRow(IndexPath path) const
{
    const auto found = m_rows.find(path.row);
    return found == m_rows.end() ? nullptr : found->second;
}

void UITableView::scrollToRow(std::int64_t row)
{
    scrollRectToVisible(rectForRow(row), false);
    layoutIfNeeded();
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
        {.role = AccessibilityRole::list, .label = accessibilityLabel(), .count = m_count}};
    info.actions = scrollActions(m_rowHeight * static_cast<CGFloat>(rowsOfAPage()),
        [this](CGPoint target) { scrollByReader(target); });
    return info;
}

void UITableView::selectByUser(std::int64_t row)
{
    if (m_editing)
        return;
    const std::optional<std::int64_t> before = std::exchange(m_selectedRow, row);
    for (const auto& [place, cell] : m_rows)
        cell->setSelected(dataRow(place) == row);
    if (before && before != row && m_delegate)
        m_delegate->tableViewDidDeselectRowAtIndexPath(*this, {0, *before});
    if (m_delegate)
        m_delegate->tableViewDidSelectRowAtIndexPath(*this, {0, row});
}

void UITableView::deselectRow(IndexPath path)
{
    if (m_selectedRow != path.row)
        return;
    m_selectedRow.reset();
    if (const auto cell = cellForRow(path))
        cell->setSelected(false);
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
    std::sort(m_deletions.begin(), m_deletions.end(), std::greater<>());
    for (const std::int64_t row : std::exchange(m_deletions, {}))
        applyDeletion(row);
    updateContentSize();
    UIView::animate(updateDuration, 0, [this] {
        for (const auto& [place, cell] : m_rows)
            putInPlaceUnlessHeld(cell, place);
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

void UITableView::applyDeletion(std::int64_t row)
{
    if (m_reordering && m_reordering->from() == row)
        endReordering(false);
    const std::int64_t gone = m_reordering ? m_reordering->placeOfDataRow(row) : row;
    if (m_reordering)
        m_reordering->rowDeleted(row, gone);
    if (m_selectedRow == row)
        m_selectedRow.reset();
    else if (m_selectedRow > row)
        --*m_selectedRow;
    for (auto& entry : m_reusable) {
        if (entry.first == gone)
            entry.first = nowhere;
        else if (entry.first > gone)
            --entry.first;
    }
    std::shared_ptr<UITableViewCell> goneCell;
    for (auto& [place, cell] : std::exchange(m_rows, {})) {
        if (place == gone)
            goneCell = cell;
        else
            m_rows.emplace(place < gone ? place : place - 1, cell);
    }
    if (goneCell)
        fadeOut(goneCell);
}

void UITableView::fadeOut(const std::shared_ptr<UITableViewCell>& cell)
{
    // It is not used again, and shows and reports a row that is no more.
    cell->setUserInteractionEnabled(false);
    UIApplication::shared().cancelTouches(*cell);
    UIView::animate(
        updateDuration, 0, [&] { cell->setAlpha(0); },
        [weakCell = std::weak_ptr<UITableViewCell>(cell)] {
            if (const auto gone = weakCell.lock())
                gone->removeFromSuperview();
        });
}

} // namespace velmorath
