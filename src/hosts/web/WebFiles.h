#pragma once

#include "Files.h"
#include <map>

namespace velmorath {

/// The browser's storage for the user's files, and what came with the page for the program's own.
class WebFiles final : public Files {
public:
    std::optional<std::string> documentDirectory() override { return "/velmorath/Documents"; }
    std::optional<std::string> defaultsFile() override { return "/velmorath/defaults.plist"; }
    std::string resourceDirectory() override { return "/resources"; }
    bool exists(const std::string& path) override;
    Result<std::string> read(const std::string& path) override;
    std::optional<Error> setAside(const std::string& path, std::string_view why) override;
    std::optional<std::string> version(const std::string&) override { return {}; }
    std::vector<std::string> copiesBeside(const std::string&) override { return {}; }

    /// What became of a replacement, in words when it failed.
    void replaced(int number, std::string error);

private:
    void write(const std::string& path, std::string_view bytes, Completion) override;

    std::map<int, Completion> m_waiting;
    int m_lastNumber = 0;
};

} // namespace velmorath
