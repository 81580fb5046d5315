#pragma once

#include "ToDoItem2.h"
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

/// Saves all notes to their file and fetches them back. Made anew for each use; keeps nothing between.
class SalvoEPrelevoDatiDaFile {
public:
    /// In the folder of the user's documents.
    static constexpr std::string_view fileName = "noteSalvate.archive";

    /// Replaces the file with this list. What becomes of it is only logged.
    void ArchiveResults(const std::vector<std::shared_ptr<ToDoItem2>>& list);

    /// The list in the file; an empty one when there is no file or it cannot be read. A file that can be
    /// read but holds no list of notes ends the program.
    std::vector<std::shared_ptr<ToDoItem2>> UnarchiveResults();

private:
    void buildPath();

    std::vector<std::string> documentDirectories;
    std::string documentDirectory;
    std::string path;
};

} // namespace velmorath
