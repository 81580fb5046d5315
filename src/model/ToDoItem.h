#pragma once

#include "Object.h"
#include <string>

namespace velmorath {

/// The older kind of note, without a date. Nothing makes, stores or reads it any more.
class ToDoItem : public Object {
public:
    /// There is no note without values: this ends the program.
    ToDoItem();

    ToDoItem(std::string itemText, bool isCompleted)
        : text(std::move(itemText))
        , completed(isCompleted)
    {
    }

    std::string text;
    bool completed;
};

} // namespace velmorath
