#pragma once

#include "PosixFiles.h"
#include <QTimer>
#include <chrono>
#include <functional>

namespace velmorath {

/// Keeps what could not be saved, and saves it later: now and then, and when the program ends. Nothing wakes
/// up while all is saved.
class RetryingFiles final : public PosixFiles {
public:
    /// Told when something is unsaved that was not before, and when all is saved again.
    RetryingFiles(
        PosixFiles files, std::chrono::milliseconds pause, std::function<void(bool isUnsaved)> changed);

    /// For the program's end. What others have put into a file's place meanwhile stays there, and ours goes
    /// beside it.
    void tryLast();

    void replace(const std::string& path, std::string_view bytes, Completion) override;

private:
    struct Unsaved {
        std::string bytes;
        /// Of what the program had read or saved there before, or could not read.
        std::optional<std::string> version;
    };

    void tryAgain();
    bool wasReplacedByOthers(const std::string& path, const Unsaved&);
    void updateTimer();

    std::function<void(bool)> m_changed;
    QTimer m_timer;
    std::map<std::string, Unsaved> m_unsaved;
};

} // namespace velmorath
