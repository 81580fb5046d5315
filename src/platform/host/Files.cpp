#include "Files.h"

namespace velmorath {

void Files::markUnreadable(const std::string& path)
{
    if (exists(path))
        m_unreadable.insert(path);
}

void Files::replace(const std::string& path, std::string_view bytes, Completion completion)
{
    if (isUnreadable(path) && exists(path)) {
        if (const auto error = setAside(path, "unreadable")) {
            completion(error);
            return;
        }
        m_unreadable.erase(path);
    }
    write(path, bytes, [this, path, completion = std::move(completion)](const auto& error) {
        // Where this failed, one that is gone may come back, as when its folder is on another machine.
        if (!error)
            m_unreadable.erase(path);
        completion(error);
    });
}

} // namespace velmorath
