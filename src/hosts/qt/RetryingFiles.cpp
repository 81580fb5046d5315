#include "RetryingFiles.h"
#include <filesystem>

namespace velmorath {

RetryingFiles::RetryingFiles(
    PosixFiles files, std::chrono::milliseconds pause, std::function<void(bool)> changed)
    : PosixFiles(std::move(files))
    , m_changed(std::move(changed))
{
    m_timer.setInterval(pause);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tryAgain(); });
}

void RetryingFiles::replace(const std::string& path, std::string_view bytes, Completion completion)
{
    PosixFiles::replace(path, bytes, [&](const std::optional<Error>& error) {
        if (error) {
            const auto unreadable = isUnreadable(path) ? version(path) : std::nullopt;
            m_unsaved[path] = {std::string(bytes), unreadable ? unreadable : knownVersion(path)};
        } else {
            m_unsaved.erase(path);
        }
        updateTimer();
        completion(error);
    });
}

bool RetryingFiles::wasReplacedByOthers(const std::string& path, const Unsaved& unsaved)
{
    const auto found = version(path);
    return found && found != unsaved.version;
}

void RetryingFiles::tryAgain()
{
    const auto all = m_unsaved;
    for (const auto& [path, unsaved] : all) {
        // The program has read what others wrote, or is about to: its next save has both, these bytes have
        // not.
        if (!wasReplacedByOthers(path, unsaved))
            replace(path, unsaved.bytes, [](const auto&) {});
    }
}

void RetryingFiles::tryLast()
{
    tryAgain();
    const auto all = m_unsaved;
    for (const auto& [path, unsaved] : all) {
        if (!wasReplacedByOthers(path, unsaved))
            continue;
        // One of those that copiesBeside() finds at the next start.
        const std::filesystem::path place(path);
        const std::string beside =
            (place.parent_path() / place.stem()).string() + ".unsaved" + place.extension().string();
        PosixFiles::replace(beside, unsaved.bytes, [](const auto&) {});
    }
}

void RetryingFiles::updateTimer()
{
    const bool isUnsaved = !m_unsaved.empty();
    if (isUnsaved == m_timer.isActive())
        return;
    if (isUnsaved)
        m_timer.start();
    else
        m_timer.stop();
    m_changed(isUnsaved);
}

} // namespace velmorath
