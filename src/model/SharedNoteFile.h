#pragma once

#include "NoteCopies.h"
#include "NoteMerge.h"
#include "Result.h"
#include <optional>
#include <string>
#include <vector>

namespace velmorath {

/// The notes' file as one that others replace, too: a synchroniser that keeps it the same on several
/// machines. Nothing that others put there is overwritten unread. Where nobody else can, it only saves and
/// loads.
class SharedNoteFile {
public:
    /// The list that is there at the program's start.
    Notes load();

    /// This list is nobody's doing: what others have put there by the next look takes its place.
    void setBase(const Notes&);

    /// Saves the list, and with it what others changed in the file since: that is news for the list then.
    void save(const Notes&);

    /// Whether the list may be missing in the file: it could not be written, or no version tells.
    bool isUnsaved() const { return m_isUnsaved; }

    /// Whether the list lacks what others put there, or a save had to put that aside unread.
    bool hasNews() const;

    /// The list with the news. From now on it counts as one that has them. An error when the file cannot be
    /// read: there is no news before it changes again.
    Result<std::vector<MergedNote>> takeNews(const Notes&);

    struct Copies {
        /// What the list does not have.
        Notes missing;
        bool areReadable = true;
    };
    /// The copies that a synchroniser left beside the file, each of them once.
    Copies takeCopies(const Notes&);
    /// Those that were taken go out of the way.
    void setCopiesAside();

private:
    struct Copy {
        std::string path;
        /// What becomes of its name.
        std::string_view what;
    };

    static std::string path();
    static Result<Notes> read();

    /// The list as it was when the file and the program last had the same one, and the file's version then.
    std::vector<ToDoItem2> m_base;
    std::optional<std::string> m_version;
    /// The version that could not be read.
    std::optional<std::string> m_unreadableVersion;
    bool m_wasPutAsideUnread = false;
    bool m_isUnsaved = false;
    std::vector<Copy> m_copies;
};

} // namespace velmorath
