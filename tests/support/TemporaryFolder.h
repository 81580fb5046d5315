#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace velmorath {

/// An empty folder that goes away with the object, whatever is in it then.
class TemporaryFolder {
public:
    TemporaryFolder()
        : m_path((std::filesystem::temp_directory_path() / "velmorath-XXXXXX").string())
    {
        if (!mkdtemp(m_path.data()))
            std::abort();
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

} // namespace velmorath
