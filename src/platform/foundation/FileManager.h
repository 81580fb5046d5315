#pragma once

#include "Result.h"
#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace velmorath {

/// The user's files, whole ones only, kept from being lost: a file that is there but could not be read
/// is put aside, under another name, before the next write takes its place.
class FileManager {
public:
    static FileManager& standard();

    /// An error also for a file that is not there.
    Result<std::string> read(const std::string& path);

    /// To be said by whoever could read a file's bytes but could make nothing of them.
    void markUnreadable(const std::string& path) { m_unreadable.insert(path); }
    /// By whoever could read it after all, and has everything that is in it.
    void markRead(const std::string& path) { m_unreadable.erase(path); }

    /// The completion gets false when the bytes could not be written, or when an unreadable file could not
    /// be put aside. The old file is kept then. It is called once, now or before the next frame.
    void replace(
        const std::string& path, std::string_view bytes, const std::function<void(bool)>& completion);

private:
    FileManager() = default;

    std::set<std::string> m_unreadable;
};

} // namespace velmorath
