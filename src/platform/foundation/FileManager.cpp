#include "FileManager.h"
#include "Host.h"

namespace velmorath {

FileManager& FileManager::standard()
{
    static FileManager manager;
    return manager;
}

Result<std::string> FileManager::read(const std::string& path)
{
    auto& files = Host::current().files();
    auto bytes = files.read(path);
    if (!bytes && files.exists(path))
        markUnreadable(path);
    return bytes;
}

void FileManager::replace(
    const std::string& path, std::string_view bytes, const std::function<void(bool)>& completion)
{
    auto& files = Host::current().files();
    // What is in the file's place from here on is ours, unless we hear that it did not get there.
    const bool isUnreadable = m_unreadable.erase(path) > 0;
    const auto told = [this, path, isUnreadable, completion](const std::optional<Error>& error) {
        if (!error)
            m_unreadable.erase(path);
        else if (isUnreadable)
            m_unreadable.insert(path);
        completion(!error);
    };
    if (isUnreadable)
        files.replaceUnreadable(path, bytes, told);
    else
        files.replace(path, bytes, told);
}

} // namespace velmorath
