#pragma once

#include "Object.h"
#include "Result.h"
#include "ToDoItem2.h"
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

using Notes = std::vector<std::shared_ptr<ToDoItem2>>;

/// The notes of an archive's root; an error when it is anything else than a list of notes.
Result<Notes> notesIn(const std::shared_ptr<Object>& root);

/// A list for people and other programs to read: a line for each note, "- [ ] " or "- [x] " before it, and
/// the further lines of a note indented.
std::string textOfNotes(const Notes&);

/// The notes of an archive, as they are in it. An error when it cannot be read or holds something else.
Result<Notes> archivedNotes(std::string_view bytes);

/// The notes of an archive that is not the program's own: each for itself, and none without a text.
Result<Notes> notesOfArchive(std::string_view bytes);

/// The notes of a copy that somebody saved or wrote: an archive, a text as above or another Markdown list, or
/// a text with a note on each line. Nothing is told or ended by what is in it. An error when it cannot be
/// read.
Result<Notes> notesOfCopy(std::string_view bytes);

/// Those of the copy that the list does not have, in their order. The same are notes with the same text, date
/// and state, as often as they stand there; what has no date may have any.
Notes notesMissing(const Notes& list, const Notes& copy);

} // namespace velmorath
