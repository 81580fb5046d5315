#include "ProgramState.h"
#include "Bundle.h"
#include "CATimeline.h"
#include "NoteCopies.h"
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
    const Result<Notes> notes = archivedNotes(*bytes);
    return notes ? std::optional(*notes) : std::nullopt;
}

} // namespace velmorath
