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

void FileManager::markUnreadable(const std::string& path)
{
    m_unreadable.insert(path);
}

bool FileManager::replace(const std::string& path, std::string_view bytes)
{
    auto& files = Host::current().files();
    if (m_unreadable.contains(path) && files.exists(path) && files.setAside(path))
        return false;
    m_unreadable.erase(path);
    return !files.replace(path, bytes);
}

} // namespace velmorath
