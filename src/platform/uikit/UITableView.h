#pragma once

#include "IndexPath.h"
#include "UIScrollView.h"
#include "UITableViewCell.h"
#include <functional>
#include <map>
#include <memory>
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
    virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView&, IndexPath);
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

    /// Asks the data source for everything again. A row that is being typed into stays as it is.
    /// No row is selected afterwards.
    void reloadData();
    /// The rows in sight, from top to bottom.
    std::vector<std::shared_ptr<UITableViewCell>> visibleCells();
    /// Nothing when the row is not in sight.
    std::shared_ptr<UITableViewCell> cellForRow(IndexPath);

    /// The mode in which rows are dragged to other places.
    bool isEditing() const { return m_editing; }
    void setEditing(bool);

    /// Deletions between the two are shown together; the data source has lost the rows by the end.
    void beginUpdates();
    void endUpdates();
    void deleteRows(const std::vector<IndexPath>&, UITableViewRowAnimation);

    /// The place of a row that is there as a view; nothing for any other view.
    std::optional<std::int64_t> placeOf(const UIView&) const;
    std::int64_t numberOfRows() const { return m_count; }
    /// As a tap on the row does, wherever the row is; nothing in editing mode.
    void selectByUser(std::int64_t row);
    /// As the user drags a row to another place; keys follow it there.
    void moveByUser(std::int64_t from, std::int64_t to);

    /// A list, a page of which can be scrolled at a time.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;

    /// Arrows, page keys, Home and End move the focus among all rows, those out of sight too; with Alt
    /// they move the row. Enter selects it.
    bool keyPressed(const HostKeyPress&) override;
    void layoutSubviews() override;

    /// For the row's handle. y in window coordinates.
    void beginReordering(UITableViewCell&, CGFloat y);
    /// Whether it is this row that is being dragged: one at a time is.
    bool isReordering(const UITableViewCell&) const;
    void continueReordering(CGFloat y);
    /// Not dropped: the row goes back to where it came from.
    void endReordering(bool isDropped);

private:
    struct Reordering {
        std::shared_ptr<UITableViewCell> cell;
        std::int64_t from;
        /// Where the row would go if it were dropped now.
        std::int64_t to;
        /// From the finger to the row's centre.
        CGFloat grip;
        CGFloat fingerInWindow;
        int displayLink;
    };
    struct Rows {
        std::int64_t first = 0;
        std::int64_t end = 0;
    };

    CGRect rectForRow(std::int64_t row) const;
    /// Where the row belongs, whatever transform somebody moved it away with.
    void putInPlace(UITableViewCell&, std::int64_t row) const;
    Rows rowsInSight() const;
    void updateContentSize();
    /// The row of the data that is shown at this place while another is being dragged.
    std::int64_t dataRow(std::int64_t place) const;
    std::shared_ptr<UITableViewCell> makeRow(std::int64_t place);
    bool mustStay(const UITableViewCell&) const;
    void placeAllRows();
    void handleTap(CGPoint);
    std::int64_t rowsOfAPage() const;
    std::optional<std::int64_t> focusedRow() const;
    void focusRow(std::int64_t);
    /// The nearest row that is in sight for the most part. There must be rows.
    std::int64_t nearestInSight(std::int64_t row) const;
    /// Takes the keys from this row when nobody sees it: they would act on it.
    void keepFocusInSight(std::int64_t row);
    /// Keys that a row of the table has go to the first one of the new page.
    void scrollByReader(CGPoint offset);
    void select(std::int64_t row);
    void applyDeletions();
    void moveDraggedRowTo(std::int64_t place);
    void scrollWhileReordering(double now);

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
    std::optional<Reordering> m_reordering;
    double m_lastReorderingStep = 0;
};

} // namespace velmorath
