#pragma once

#include <memory>
#include <vector>

namespace velmorath {

class ToDoItem2;

/// Receives the list of notes from the screen that changed it.
class delegatoRicaricaNote {
public:
    virtual ~delegatoRicaricaNote() = default;

    virtual void nuovoArrayNote(const std::vector<std::shared_ptr<ToDoItem2>>& list) = 0;
};

} // namespace velmorath
