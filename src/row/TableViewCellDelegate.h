#pragma once

#include <memory>

namespace velmorath {

class TableViewCell;
class ToDoItem2;

/// What a row reports. It has already changed its own look; the list changes notes, file and badge.
class TableViewCellDelegate {
public:
    virtual ~TableViewCellDelegate() = default;

    /// One of the row's text fields began to be edited.
    virtual void cellDidBeginEditing(TableViewCell& editingCell) = 0;
    /// A text field ended being edited; the row's note has the text and the new date already.
    virtual void cellDidEndEditing(TableViewCell& editingCell) = 0;
    /// A completed note was swiped to the right.
    virtual void toDoItemRiaperto(const std::shared_ptr<ToDoItem2>&) = 0;
    /// An open note was swiped to the right.
    virtual void toDoItemCambiaColoreALetto(const std::shared_ptr<ToDoItem2>&) = 0;
    /// A note was swiped to the left.
    virtual void toDoItemDeleted(const std::shared_ptr<ToDoItem2>&) = 0;
};

} // namespace velmorath
