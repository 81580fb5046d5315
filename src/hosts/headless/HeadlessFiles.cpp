#include "HeadlessFiles.h"
#include <cstdlib>
#include <filesystem>

namespace velmorath {

namespace {

std::string makeScratchFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "velmorath-XXXXXX").string();
    return mkdtemp(name.data()) ? name : std::string();
}

} // namespace

HeadlessFiles::HeadlessFiles(std::string resourceDirectory)
    : m_scratchFolder(makeScratchFolder())
    , m_files(
          m_scratchFolder + "/Documents", m_scratchFolder + "/defaults.plist", std::move(resourceDirectory))
{
}

HeadlessFiles::~HeadlessFiles()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_scratchFolder, ignored);
}

std::optional<std::string> HeadlessFiles::documentDirectory()
{
    return m_hasDocumentDirectory ? m_files.documentDirectory() : std::nullopt;
}

std::optional<std::string> HeadlessFiles::defaultsFile()
{
    return m_hasDefaultsFile ? m_files.defaultsFile() : std::nullopt;
}

bool HeadlessFiles::exists(const std::string& path)
{
    const bool isHidden = !m_hidden.empty() && path.ends_with("/" + m_hidden);
    return !isHidden && m_files.exists(path);
}

std::optional<Error> HeadlessFiles::fault(Operation operation, const std::string& path) const
{
    return m_fault ? m_fault(operation, path) : std::nullopt;
}

Result<std::string> HeadlessFiles::read(const std::string& path)
{
    if (auto error = fault(Operation::read, path))
        return *error;
    return m_files.read(path);
}

void HeadlessFiles::write(const std::string& path, std::string_view bytes, Completion completion)
{
    if (m_answersLate) {
        completion = [this, completion = std::move(completion)](const std::optional<Error>& error) {
            m_answers.emplace_back([completion, error] { completion(error); });
        };
    }
    if (auto error = fault(Operation::replace, path)) {
        completion(error);
        return;
    }
    ++m_replacements;
    m_files.replace(path, bytes, std::move(completion));
}

void HeadlessFiles::answer()
{
    for (const auto& answer : std::exchange(m_answers, {}))
        answer();
}

std::optional<Error> HeadlessFiles::setAside(const std::string& path, std::string_view why)
{
    if (auto error = fault(Operation::setAside, path))
        return error;
    return m_files.setAside(path, why);
}

std::optional<std::string> HeadlessFiles::version(const std::string& path)
{
    return m_shared ? m_files.version(path) : std::nullopt;
}

std::vector<std::string> HeadlessFiles::copiesBeside(const std::string& path)
{
    return m_shared ? m_files.copiesBeside(path) : std::vector<std::string>();
}

} // namespace velmorath
