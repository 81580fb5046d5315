#pragma once

#include "Result.h"
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

/// Files, whole ones only. Paths are UTF-8 and absolute. Main thread only; each call has done its work
/// when it returns, but replace() may need longer to know what became of it. Required.
class Files {
public:
    /// Told what became of a file: nothing when it worked.
    using Completion = std::function<void(const std::optional<Error>&)>;

    virtual ~Files() = default;

    /// The folder that holds the user's documents, nothing when there is none to be had. It need not
    /// exist yet: replace() makes the folders above a file.
    virtual std::optional<std::string> documentDirectory() = 0;

    /// The file of the user-defaults store, nothing when there is none to be had.
    virtual std::optional<std::string> defaultsFile() = 0;

    /// The folder of the program's own resources: sounds, pictures, strings tables.
    virtual std::string resourceDirectory() = 0;

    virtual bool exists(const std::string& path) = 0;

    /// The whole file. A missing file is an error like any other.
    virtual Result<std::string> read(const std::string& path) = 0;

    /// To be said by whoever could not read a file, or could make nothing of its bytes.
    void markUnreadable(const std::string& path);
    /// By whoever could read it after all, and has everything that is in it.
    void markRead(const std::string& path) { m_unreadable.erase(path); }

    /// Puts these bytes in the file's place: whenever the program or the machine stops, the old file or
    /// the new one is there, whole, and it is readable by its owner alone. An unreadable file is set aside
    /// first; when it cannot be, that is the error. After an error the old file is as it was. The completion
    /// is called exactly once: before this returns where the machine can, else later, but before the next
    /// HostClient::prepareFrame. Until then read() and exists() know the new file.
    virtual void replace(const std::string& path, std::string_view bytes, Completion);

    /// Moves a file out of the way, beside its old place, under a name that says why and that no other file
    /// has. Nothing when it worked. Where replacements end later this is part of the next one that works:
    /// until then the file is in its old place.
    virtual std::optional<Error> setAside(const std::string& path, std::string_view why) = 0;

    /// Another text whenever somebody has put something else in the file's place. Nothing when there is no
    /// file, and on machines where nobody else can: those need not have any of what follows.
    virtual std::optional<std::string> version(const std::string& path) = 0;

    /// Files beside this one that have its name with something more before the extension: who keeps files the
    /// same on several machines leaves one where both had changed. So does replace(), when the file has been
    /// replaced by somebody else since it was read or replaced here.
    virtual std::vector<std::string> copiesBeside(const std::string& path) = 0;

protected:
    bool isUnreadable(const std::string& path) const { return m_unreadable.contains(path); }

private:
    /// As replace(), whatever is there.
    virtual void write(const std::string& path, std::string_view bytes, Completion) = 0;

    std::set<std::string> m_unreadable;
};

} // namespace velmorath
