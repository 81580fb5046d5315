#include "Files.h"

namespace velmorath {

void Files::markUnreadable(const std::string& path)
{
    if (exists(path))
        m_unreadable.insert(path);
}

void Files::replace(const std::string& path, std::string_view bytes, Completion completion)
{
    const auto error = isUnreadable(path) && exists(path) ? setAside(path, "unreadable") : std::nullopt;
    if (error) {
        completion(error);
        return;
    }
    m_unreadable.erase(path);
    write(path, bytes, std::move(completion));
}

} // namespace velmorath
