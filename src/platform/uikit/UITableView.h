#pragma once

#include "IndexPath.h"
#include "UIScrollView.h"
#include "UITableViewCell.h"
#include "UITableViewReordering.h"
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace velmorath {

class UITableView;

enum class UITableViewCellEditingStyle { none };
enum class UITableViewCellSeparatorStyle { none };
enum class UITableViewRowAnimation { fade };

class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;

    virtual std::int64_t numberOfSectionsInTableView(UITableView&) { return 1; }
    virtual std::int64_t tableViewNumberOfRowsInSection(UITableView&, std::int64_t section) = 0;
    virtual std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, IndexPath) = 0;
    /// Whether the row takes part in the table's editing mode.
    virtual bool tableViewCanEditRowAtIndexPath(UITableView&, IndexPath) { return true; }
    /// The user dragged a row to another place, or back to its own: the data must follow.
    virtual void tableViewMoveRowAtIndexPathToIndexPath(UITableView&, IndexPath /*from*/, IndexPath /*to*/) {
    }
};

class UITableViewDelegate : public UIScrollViewDelegate {
public:
    /// The height of every row: the table asks for the first one's at each reload.
    virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView&, IndexPath) = 0;
    /// The row is about to come into sight.
    virtual void tableViewWillDisplayCellForRowAtIndexPath(UITableView&, UITableViewCell&, IndexPath) { }
    /// Not called in editing mode.
    virtual void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath) { }
    /// Another row is about to be selected instead of this one.
    virtual void tableViewDidDeselectRowAtIndexPath(UITableView&, IndexPath) { }
    /// Beside a row in editing mode there is nothing but the handle to drag it by.
    virtual UITableViewCellEditingStyle tableViewEditingStyleForRowAtIndexPath(UITableView&, IndexPath)
    {
        return UITableViewCellEditingStyle::none;
    }
    virtual bool tableViewShouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath) { return true; }
};

/// Rows of one height, one below the other. Only the rows in sight exist as views; those that leave are
/// used again for those that come. One section.
///
/// A row in which a gesture is going on (a swipe, a drag by its handle) or a text is edited is held: it is
/// neither moved nor bound anew nor used for another place, whatever reload, layout or resize comes. What it
/// missed is made up once it is let go.
class UITableView : public UIScrollView {
public:
    using MakeCell =
        std::function<std::shared_ptr<UITableViewCell>(UITableViewCellStyle, std::string identifier)>;

    explicit UITableView(const CGRect& frame);

    void setDataSource(UITableViewDataSource* dataSource) { m_dataSource = dataSource; }
    void setDelegate(UITableViewDelegate*);
    CGFloat rowHeight() const { return m_rowHeight; }
    void setRowHeight(CGFloat height) { m_rowHeight = height; }
    /// There are no lines between rows; this says that there shall be none.
    void setSeparatorStyle(UITableViewCellSeparatorStyle) { }

    /// Rows with this identifier are made as objects of this class.
    template <typename Cell> void registerClass(const std::string& identifier)
    {
        m_makers[identifier] = [](UITableViewCellStyle style, std::string reuseIdentifier) {
            return std::make_shared<Cell>(style, std::move(reuseIdentifier));
        };
    }
    /// A row out of sight or, when there is none, a new one. The one that showed the same place before
    /// comes first.
    std::shared_ptr<UITableViewCell> dequeueReusableCell(const std::string& identifier, IndexPath);

    /// Asks the data source for everything again, with the next layout. No row is selected afterwards.
    void reloadData();
    /// The rows that are there as views, from top to bottom: as the last layout left them, without those
    /// that a reload since then gives up.
    std::vector<std::shared_ptr<UITableViewCell>> visibleCells() const;
    /// Nothing when the row is not among them.
    std::shared_ptr<UITableViewCell> cellForRow(IndexPath) const;
    /// Scrolls at once to where a row is in sight that is not.
    void scrollToRow(std::int64_t row);

    /// The mode in which rows are dragged to other places.
    bool isEditing() const { return m_editing; }
    void setEditing(bool);

    /// Deletions between the two are shown together; the data source has lost the rows by the end.
    void beginUpdates() { m_isUpdating = true; }
    void endUpdates();
    void deleteRows(const std::vector<IndexPath>&, UITableViewRowAnimation);

    /// The place of a row that is there as a view; nothing for any other view.
    std::optional<std::int64_t> placeOf(const UIView&) const;
    std::int64_t numberOfRows() const { return m_count; }
    /// As a tap on the row does, wherever the row is; nothing in editing mode.
    void selectByUser(std::int64_t row);
    /// Nobody is told.
    void deselectRow(IndexPath);
    /// As the user drags a row to another place; keys follow it there.
    void moveByUser(std::int64_t from, std::int64_t to);

    /// A list, a page of which can be scrolled at a time.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    /// Arrows, page keys, Home and End move the focus among all rows, those out of sight too; with Alt
    /// they move the row. Enter selects it.
    bool keyPressed(const HostKeyPress&) override;
    /// Without rows, so that keys have a place where there is nothing else.
    bool canBecomeFocused() const override { return m_count == 0; }
    void layoutSubviews() override;

    /// For the handle of a row: a finger has it, moves, and lets it go. y in window coordinates.
    void beginReordering(UITableViewCell&, CGFloat y);
    void continueReordering(CGFloat y);
    /// Not dropped: the row goes back to where it came from.
    void endReordering(bool isDropped);

private:
    friend class UITableViewReordering;

    CGRect rectForRow(std::int64_t row) const;
    /// Where the row belongs, whatever transform somebody moved it away with.
    void putInPlace(UITableViewCell&, std::int64_t row) const;
    /// The first one, and the one after the last.
    std::pair<std::int64_t, std::int64_t> rowsInSight() const;
    void updateContentSize();
    /// The row of the data that is shown at this place: another than it, while one is being dragged.
    std::int64_t dataRow(std::int64_t place) const
    {
        return m_reordering ? m_reordering->dataRow(place) : place;
    }
    std::shared_ptr<UITableViewCell> makeRow(std::int64_t place);
    static bool isHeld(const UITableViewCell&);
    void putInPlaceUnlessHeld(const std::shared_ptr<UITableViewCell>&, std::int64_t place);
    /// Rows that a reload gave up and that were taken hold of before the layout that follows it.
    void takeBackHeldRows();
    void makeUpForRowsLetGo();
    void takeRowsOutOfUse();
    /// For a row on its way to another place.
    void swapRows(std::int64_t place, std::int64_t otherPlace);
    std::int64_t rowsOfAPage() const;
    std::optional<std::int64_t> focusedRow() const;
    void focusRow(std::int64_t);
    /// The nearest row that is in sight for the most part. There must be rows.
    std::int64_t nearestInSight(std::int64_t row) const;
    /// Takes the keys from this row when nobody sees it: they would act on it.
    void keepFocusInSight(std::int64_t row);
    /// Keys that a row of the table has go to the first one of the new page.
    void scrollByReader(CGPoint offset);
    void applyDeletion(std::int64_t row);
    void fadeOut(const std::shared_ptr<UITableViewCell>&);

    UITableViewDataSource* m_dataSource = nullptr;
    UITableViewDelegate* m_delegate = nullptr;
    std::map<std::string, MakeCell> m_makers;
    CGFloat m_rowHeight = 44;
    std::int64_t m_count = 0;
    bool m_hasLoaded = false;
    bool m_editing = false;
    /// The data source and the rows do not fit each other just now.
    bool m_isUpdating = false;
    CGFloat m_laidOutWidth = 0;
    std::map<std::int64_t, std::shared_ptr<UITableViewCell>> m_rows;
    /// Rows out of use, with the place that each showed last if it was in sight a moment ago.
    std::vector<std::pair<std::int64_t, std::shared_ptr<UITableViewCell>>> m_reusable;
    std::vector<std::int64_t> m_deletions;
    std::optional<std::int64_t> m_selectedRow;
    /// Held rows that missed a reload or a move.
    std::set<std::shared_ptr<UITableViewCell>> m_behind;
    std::optional<UITableViewReordering> m_reordering;
};

} // namespace velmorath
