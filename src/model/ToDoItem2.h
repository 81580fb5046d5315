#pragma once

#include "Coding.h"
#include "Object.h"
#include <memory>
#include <optional>
#include <string>

namespace velmorath {

class KeyedUnarchiver;

/// One note. Shared by the list, the row that shows it and the detail screen: what one of them changes,
/// all of them see.
class ToDoItem2 : public Object, public Coding {
public:
    /// The name under which archives hold notes.
    static constexpr std::string_view className = "_TtC9Velmorath9ToDoItem2";

    /// Makes notes known to the unarchiver. To be called once before a list is read.
    static void enterInUnarchiver();

    ToDoItem2() = default;
    /// Takes what it finds; what is missing, or of another kind, keeps its initial value.
    explicit ToDoItem2(KeyedUnarchiver&);

    std::string_view archivedClassName() const override { return className; }
    void encode(KeyedArchiver&) const override;

    std::optional<std::string> text;
    /// The day on which the text was last committed in its row, as it is shown. Never a date to compute with.
    std::optional<std::string> data;
    bool completed = false;
};

} // namespace velmorath
