#pragma once

#include "Files.h"
#include <cstddef>
#include <map>

namespace velmorath {

/// The files of a machine that has the usual system calls. A path that is a symbolic link stands for
/// the file that it leads to: that one is replaced and set aside, and the link stays.
class PosixFiles : public Files {
public:
    /// A longer file is not read.
    static constexpr std::size_t longestFile = std::size_t(1) << 30;

    PosixFiles(std::optional<std::string> documentDirectory, std::optional<std::string> defaultsFile,
        std::string resourceDirectory);

    /// Where the desktop's customs put a user's files: XDG_DATA_HOME and XDG_CONFIG_HOME, or their usual
    /// places in HOME. No documents and no defaults when neither is set.
    static PosixFiles forUser(std::string resourceDirectory);

    std::optional<std::string> documentDirectory() override { return m_documentDirectory; }
    std::optional<std::string> defaultsFile() override { return m_defaultsFile; }
    std::string resourceDirectory() override { return m_resourceDirectory; }

    /// True also when something keeps us from knowing.
    bool exists(const std::string& path) override;
    Result<std::string> read(const std::string& path) override;
    std::optional<Error> setAside(const std::string& path, std::string_view why) override;
    std::optional<std::string> version(const std::string& path) override;
    std::vector<std::string> copiesBeside(const std::string& path) override;

protected:
    /// The version of what was read or replaced here last.
    std::optional<std::string> knownVersion(const std::string& path) const;

private:
    void write(const std::string& path, std::string_view bytes, Completion) override;

    std::optional<Error> replaceNow(const std::string& path, std::string_view bytes);

    std::optional<std::string> m_documentDirectory;
    std::optional<std::string> m_defaultsFile;
    std::string m_resourceDirectory;
    std::map<std::string, std::string> m_knownVersions;
};

} // namespace velmorath
