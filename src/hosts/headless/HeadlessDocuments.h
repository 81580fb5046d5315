#pragma once

#include "Documents.h"
#include <utility>

namespace velmorath {

/// Keeps what would have gone to other programs, and has one file to give.
class HeadlessDocuments : public Documents {
public:
    void share(const std::string& utf8, std::function<void(Shared)> answer) override
    {
        m_shared = utf8;
        answer(m_howShared);
    }
    void save(const std::string& name, const std::string& bytes,
        std::function<void(std::optional<Error>)> answer) override
    {
        m_savedName = name;
        m_saved = bytes;
        answer(m_saveError);
    }
    void open(std::function<void(Result<std::optional<std::string>>)> answer) override { answer(m_file); }

    const std::string& shared() const { return m_shared; }
    void setHowShared(Shared how) { m_howShared = how; }
    const std::string& savedName() const { return m_savedName; }
    const std::string& saved() const { return m_saved; }
    void setSaveError(std::optional<Error> error) { m_saveError = std::move(error); }
    /// What the user chooses from now on.
    void setFile(Result<std::optional<std::string>> file) { m_file = std::move(file); }

private:
    std::string m_shared;
    Shared m_howShared = Shared::handedOver;
    std::string m_savedName;
    std::string m_saved;
    std::optional<Error> m_saveError;
    Result<std::optional<std::string>> m_file{std::nullopt};
};

} // namespace velmorath
