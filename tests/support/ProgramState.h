#pragma once

#include "HeadlessHost.h"
#include "ToDoItem2.h"
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmorath {

/// What the program keeps in memory from one start to the next in one process, as no other process would.
void forgetProgramState();

std::string archivePath(HeadlessHost&);

/// The notes in the file; nothing when there is no file or no list in it.
std::optional<std::vector<std::shared_ptr<ToDoItem2>>> savedNotes(HeadlessHost&);

} // namespace velmorath
