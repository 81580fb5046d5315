#pragma once

#include "CADisplayLink.h"
#include "CGGeometry.h"
#include <cstdint>
#include <memory>

namespace velmorath {

class UITableView;
class UITableViewCell;

/// A row on its way to another place of its table: it follows the finger that has its handle, the rows on
/// the way give way, and near the table's ends it scrolls the table. Part of the table's own logic, and gone
/// with it.
class UITableViewReordering {
public:
    /// How long a row takes to a place next to its own, in seconds.
    static constexpr double moveAsideDuration = 0.2;

    /// Lifts a row of the table at this place. y in window coordinates, here and below.
    UITableViewReordering(UITableView&, std::shared_ptr<UITableViewCell>, std::int64_t place, CGFloat y);
    UITableViewReordering(const UITableViewReordering&) = delete;
    UITableViewReordering& operator=(const UITableViewReordering&) = delete;

    const std::shared_ptr<UITableViewCell>& cell() const { return m_cell; }
    /// The dragged row's place in the data, and the place that it would go to if it were dropped now.
    std::int64_t from() const { return m_from; }
    std::int64_t to() const { return m_to; }
    /// The row of the data that is shown at a place meanwhile, and the other way round.
    std::int64_t dataRow(std::int64_t place) const;
    std::int64_t placeOfDataRow(std::int64_t row) const;

    /// The finger has moved.
    void moveTo(CGFloat y);
    /// The content has moved under the finger.
    void contentMoved();
    /// Another row of the data went away, which was shown at this place.
    void rowDeleted(std::int64_t row, std::int64_t place);
    /// The row goes back to where it came from.
    void goBack() { moveRowTo(m_from); }

private:
    void moveRowTo(std::int64_t place);
    /// How fast the table is to scroll now, in points a second.
    CGFloat scrollSpeed() const;
    void scrollWhereWanted();
    void scroll(double now);

    UITableView& m_table;
    std::shared_ptr<UITableViewCell> m_cell;
    std::int64_t m_from;
    std::int64_t m_to;
    CGFloat m_finger;
    /// From the finger to the row's centre.
    CGFloat m_grip;
    CADisplayLink m_scrolling;
    double m_lastStep = 0;
};

} // namespace velmorath
