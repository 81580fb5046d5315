#include "SalvoEPrelevoDatiDaFile.h"
#include "FatalError.h"
#include "Host.h"
#include "KeyedArchiver.h"
#include "KeyedUnarchiver.h"
#include "NoteCopies.h"
#include "Print.h"

namespace velmorath {

void SalvoEPrelevoDatiDaFile::buildPath()
{
    documentDirectories.clear();
    if (auto directory = Host::current().files().documentDirectory())
        documentDirectories.push_back(*directory);
    if (documentDirectories.empty())
        fatalError("There is no documents directory");
    documentDirectory = documentDirectories.front();
    path = documentDirectory + "/" + std::string(fileName);
}

void SalvoEPrelevoDatiDaFile::ArchiveResults(const std::vector<std::shared_ptr<ToDoItem2>>& list)
{
    print("ArchiveResults");
    buildPath();
    KeyedArchiver::archiveRootObject(list, path,
        [](bool success) { print(success ? "Success writing to file!" : "Unable to write to file!"); });
}

std::vector<std::shared_ptr<ToDoItem2>> SalvoEPrelevoDatiDaFile::UnarchiveResults()
{
    buildPath();
    Files& files = Host::current().files();
    const Result<std::string> bytes = files.read(path);
    const auto root = bytes ? KeyedUnarchiver::unarchiveTopLevelObject(*bytes) : bytes.error();
    if (!root) {
        files.markUnreadable(path);
        print("error : " + root.error().description);
        return {};
    }
    Result<Notes> notes = notesIn(*root);
    if (!notes)
        fatalError(notes.error().description);
    return std::move(*notes);
}

} // namespace velmorath
