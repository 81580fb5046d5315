#include "ProgramState.h"
#include "Bundle.h"
#include "CATimeline.h"
#include "KeyedUnarchiver.h"
#include "UserDefaults.h"

namespace velmorath {

void forgetProgramState()
{
    UserDefaults::standard().reset();
    Bundle::main().reset();
    CATimeline::main().reset();
}

std::string archivePath(HeadlessHost& host)
{
    return *host.files().documentDirectory() + "/noteSalvate.archive";
}

std::optional<std::vector<std::shared_ptr<ToDoItem2>>> savedNotes(HeadlessHost& host)
{
    const Result<std::string> bytes = host.files().read(archivePath(host));
    if (!bytes)
        return {};
    const Result<ArchivedValue> root = KeyedUnarchiver::unarchiveTopLevelObject(*bytes);
    if (!root || !root->array())
        return {};
    std::vector<std::shared_ptr<ToDoItem2>> notes;
    for (const ArchivedValue& element : *root->array())
        notes.push_back(std::dynamic_pointer_cast<ToDoItem2>(element.object()));
    return notes;
}

} // namespace velmorath
