#pragma once

#include "Files.h"
#include <QTimer>
#include <chrono>
#include <map>

namespace velmorath {

/// Keeps what could not be saved, and saves it later: now and then, and when the program ends. Nothing wakes
/// up while all is saved.
class RetryingFiles final : public Files {
public:
    /// The files outlive this. Told when something is unsaved that was not before, and when all is saved
    /// again.
    RetryingFiles(Files& files, std::chrono::milliseconds pause, std::function<void(bool isUnsaved)> changed);

    /// For the program's end. What others have put into a file's place meanwhile stays there, and ours goes
    /// beside it.
    void tryLast();

    std::optional<std::string> documentDirectory() override { return m_files.documentDirectory(); }
    std::optional<std::string> defaultsFile() override { return m_files.defaultsFile(); }
    std::string resourceDirectory() override { return m_files.resourceDirectory(); }
    bool exists(const std::string& path) override { return m_files.exists(path); }
    Result<std::string> read(const std::string& path) override;
    void replace(const std::string& path, std::string_view bytes, Completion) override;
    std::optional<Error> setAside(const std::string& path, std::string_view why) override
    {
        return m_files.setAside(path, why);
    }
    std::optional<std::string> version(const std::string& path) override { return m_files.version(path); }
    std::vector<std::string> copiesBeside(const std::string& path) override
    {
        return m_files.copiesBeside(path);
    }

private:
    using Version = std::optional<std::string>;
    struct Unsaved {
        std::string bytes;
        /// Of what the program had read or saved there before.
        Version version;
    };

    void tryAgain();
    bool wasReplacedByOthers(const std::string& path, const Unsaved&);
    void updateTimer();

    Files& m_files;
    std::function<void(bool)> m_changed;
    QTimer m_timer;
    std::map<std::string, Version> m_knownVersions;
    std::map<std::string, Unsaved> m_unsaved;
};

} // namespace velmorath
