#include "WebDocuments.h"
#include "Page.h"
#include <utility>

namespace velmorath {

void WebDocuments::share(const std::string& utf8, std::function<void(Shared)> answer)
{
    m_shareAnswer = std::move(answer);
    pageShare(utf8.data(), utf8.size());
}

void WebDocuments::save(
    const std::string& name, const std::string& bytes, std::function<void(std::optional<Error>)> answer)
{
    pageSaveDocument(name.data(), name.size(), bytes.data(), bytes.size());
    answer({});
}

void WebDocuments::open(std::function<void(Result<std::optional<std::string>>)> answer)
{
    m_openAnswer = std::move(answer);
    pageOpenDocument();
}

void WebDocuments::shared(Shared how)
{
    if (const auto answer = std::exchange(m_shareAnswer, nullptr))
        answer(how);
}

void WebDocuments::opened(Result<std::optional<std::string>> file)
{
    if (const auto answer = std::exchange(m_openAnswer, nullptr))
        answer(std::move(file));
}

} // namespace velmorath
