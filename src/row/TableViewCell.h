#pragma once

#include "CAGradientLayer.h"
#include "StrikeThroughText.h"
#include "TableViewCellDelegate.h"
#include "TableViewCellInsertionDelegate.h"
#include "ToDoItem2.h"
#include "UIGestureRecognizer.h"
#include "UITableViewCell.h"

namespace velmorath {

class KeyedUnarchiver;
class UIPanGestureRecognizer;

/// One row of the list: a note's text, edited in place, and the date of its last edit. Swiped to the
/// right it completes or reopens its note, to the left it deletes it. Without a note it is the
/// placeholder of the gestures that insert one, and cannot be edited.
class TableViewCell : public UITableViewCell,
                      private UITextFieldDelegate,
                      private UIGestureRecognizerDelegate {
public:
    TableViewCell(UITableViewCellStyle, std::string reuseIdentifier);
    /// Is not archived: this ends the program.
    explicit TableViewCell(KeyedUnarchiver&);

    const std::shared_ptr<ToDoItem2>& toDoItem() const { return m_toDoItem; }
    /// Binds the row to a note: shows what is in it. No note is a fatal error.
    void setToDoItem(std::shared_ptr<ToDoItem2>);

    void layoutSubviews() override;
    /// The space bar completes or reopens, Delete deletes, F2 edits.
    bool keyPressed(const HostKeyPress&) override;
    /// The note as one item, with all that gestures do to it. Nothing but its words while one is typed.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;
    /// The words of the note edit the note, the words of the date the date, anything else is the row.
    std::shared_ptr<UIView> hitTest(CGPoint) override;

    const std::shared_ptr<CAGradientLayer> gradientLayer = std::make_shared<CAGradientLayer>();
    CGPoint originalCenter;
    bool deleteOnDragRelease = false;
    bool completeOnDragRelease = false;
    std::shared_ptr<UILabel> tickLabel;
    std::shared_ptr<UILabel> crossLabel;
    const std::shared_ptr<StrikeThroughText> label;
    const std::shared_ptr<StrikeThroughText> labelData;
    std::shared_ptr<CALayer> itemCompleteLayer = std::make_shared<CALayer>();
    /// Outlives the row. May be none.
    TableViewCellDelegate* delegate = nullptr;
    /// Outlives the row. May be none.
    TableViewCellInsertionDelegate* insertionDelegate = nullptr;

    const CGFloat kLabelLeftMargin = 15.0;
    const CGFloat kUICuesMargin = 10.0;
    const CGFloat kUICuesWidth = 60.0;

private:
    bool textFieldShouldReturn(UITextField&) override;
    bool textFieldShouldBeginEditing(UITextField&) override;
    void textFieldDidBeginEditing(UITextField&) override;
    void textFieldDidEndEditing(UITextField&) override;

    bool gestureRecognizerShouldBegin(UIGestureRecognizer&) override;
    void handlePan(UIPanGestureRecognizer&);
    void followPan(const UIPanGestureRecognizer&);
    void endPan();
    void completeOrReopen();
    void deleteNote();
    std::vector<UIAccessibilityAction> accessibilityActions();

    std::shared_ptr<ToDoItem2> m_toDoItem;
    /// A text was typed during this swipe: nothing comes of it, even when the typing is over.
    bool m_panIsIgnored = false;
};

} // namespace velmorath
