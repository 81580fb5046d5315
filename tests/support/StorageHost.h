#pragma once

#include "Host.h"
#include "PosixFiles.h"
#include "TemporaryFolder.h"
#include <cstdlib>

namespace velmorath {

/// Real files in a folder that goes away, with faults at will; a language; nothing else. Installs itself.
class StorageHost : public Host, private Files, private Locale {
public:
    StorageHost() { install(*this); }

    const std::string& folder() const { return m_folder.path(); }

    bool failReads = false;
    bool failSettingAside = false;
    bool failReplacing = false;
    bool hasDefaultsFile = true;
    int replaceCount = 0;
    std::vector<std::string> languages;

    Files& files() override { return *this; }
    Locale& locale() override { return *this; }
    Screen& screen() override { std::abort(); }
    TextInput& textInput() override { std::abort(); }
    Clock& clock() override { std::abort(); }
    Effects& effects() override { std::abort(); }
    Console& console() override { std::abort(); }
    int run(HostClient&) override { return 0; }

private:
    std::optional<std::string> documentDirectory() override { return folder(); }
    std::optional<std::string> defaultsFile() override
    {
        return hasDefaultsFile ? std::optional(folder() + "/defaults.plist") : std::nullopt;
    }
    std::string resourceDirectory() override { return folder(); }
    bool exists(const std::string& path) override { return m_files.exists(path); }
    Result<std::string> read(const std::string& path) override
    {
        return failReads ? Error{"input/output error"} : m_files.read(path);
    }
    std::optional<Error> replace(const std::string& path, std::string_view bytes) override
    {
        ++replaceCount;
        return failReplacing ? Error{"disk full"} : m_files.replace(path, bytes);
    }
    std::optional<Error> setAside(const std::string& path) override
    {
        return failSettingAside ? Error{"not permitted"} : m_files.setAside(path);
    }
    std::vector<std::string> preferredLanguages() override { return languages; }
    std::string mediumDate(double, std::string_view) override { return {}; }

    TemporaryFolder m_folder;
    PosixFiles m_files{{}, {}, {}};
};

} // namespace velmorath
