#pragma once

#include "Documents.h"

namespace velmorath {

/// What browsers have for it: their sharing or the clipboard, downloads and file inputs.
class WebDocuments final : public Documents {
public:
    void share(const std::string& utf8, std::function<void(Shared)> answer) override;
    /// A browser does not tell what became of a download.
    void save(const std::string& name, const std::string& bytes,
        std::function<void(std::optional<Error>)> answer) override;
    void open(std::function<void(Result<std::optional<std::string>>)> answer) override;

    /// What came of it.
    void shared(Shared);
    void opened(Result<std::optional<std::string>>);

private:
    std::function<void(Shared)> m_shareAnswer;
    std::function<void(Result<std::optional<std::string>>)> m_openAnswer;
};

} // namespace velmorath
