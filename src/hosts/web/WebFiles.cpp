#include "WebFiles.h"
#include "IncomingBytes.h"
#include "Page.h"

namespace velmorath {

bool WebFiles::exists(const std::string& path)
{
    return pageFileExists(path.data(), path.size());
}

Result<std::string> WebFiles::read(const std::string& path)
{
    const long length = pageReadFile(path.data(), path.size());
    if (length < 0)
        return Error{"Cannot read " + path + ": it is not there"};
    return IncomingBytes::take(static_cast<std::size_t>(length));
}

void WebFiles::write(const std::string& path, std::string_view bytes, Completion completion)
{
    const int number = ++m_lastNumber;
    m_waiting.emplace(number, std::move(completion));
    pageReplaceFile(path.data(), path.size(), bytes.data(), bytes.size(), number);
}

std::optional<Error> WebFiles::setAside(const std::string& path, std::string_view)
{
    // Part of the write that follows: it fails with that one.
    pageSetFileAside(path.data(), path.size());
    return {};
}

void WebFiles::replaced(int number, std::string error)
{
    const auto waiting = m_waiting.extract(number);
    if (waiting.empty())
        return;
    waiting.mapped()(error.empty() ? std::nullopt : std::optional(Error{std::move(error)}));
}

} // namespace velmorath
