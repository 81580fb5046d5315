#pragma once

#include "ToDoItem2.h"
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace velmorath {

/// A note of a list that was merged of two.
struct MergedNote {
    /// Its place in our list; nothing for one that comes from theirs.
    std::optional<std::size_t> place;
    ToDoItem2 note;
};

/// Makes one list of what two sides made of the same one. What either side added, deleted, edited, completed
/// or moved holds. A note that one side deleted and the other changed stays; where both edited the text, both
/// texts stay, one below the other; what both added is added once. Both sides come to the same list,
/// whichever of them is called ours.
///
/// Notes have no identity: two are the same if text, date and state are; else if the text is; else if one
/// stands where the other did and their texts resemble each other.
std::vector<MergedNote> mergeNotes(const std::vector<ToDoItem2>& base,
    const std::vector<std::shared_ptr<ToDoItem2>>& ours,
    const std::vector<std::shared_ptr<ToDoItem2>>& theirs);

/// Whether the merged list is no other than this one.
bool isSame(const std::vector<std::shared_ptr<ToDoItem2>>& notes, const std::vector<MergedNote>& merged);

} // namespace velmorath
