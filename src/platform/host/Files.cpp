#include "Files.h"

namespace velmorath {

void Files::markUnreadable(const std::string& path)
{
    if (exists(path))
        m_unreadable.insert(path);
}

void Files::replace(const std::string& path, std::string_view bytes, Completion completion)
{
    const bool wasUnreadable = isUnreadable(path);
    const bool isGone = wasUnreadable && !exists(path);
    if (wasUnreadable && !isGone) {
        if (const auto error = setAside(path, "unreadable")) {
            completion(error);
            return;
        }
    }
    m_unreadable.erase(path);
    write(path, bytes, [this, path, isGone, completion = std::move(completion)](const auto& error) {
        // It may come back, as when its folder is on another machine.
        if (error && isGone)
            m_unreadable.insert(path);
        completion(error);
    });
}

} // namespace velmorath
