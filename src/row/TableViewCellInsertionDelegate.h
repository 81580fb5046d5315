#pragma once

#include <memory>

namespace velmorath {

class ToDoItem2;

/// What a row asks for besides reporting: a place for another note, which has no gesture on the row itself.
class TableViewCellInsertionDelegate {
public:
    virtual ~TableViewCellInsertionDelegate() = default;

    /// A new note is wanted below this one.
    virtual void toDoItemAddedBelow(const std::shared_ptr<ToDoItem2>&) = 0;
};

} // namespace velmorath
