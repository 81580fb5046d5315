#pragma once

#include "PosixFiles.h"
#include <functional>

namespace velmorath {

/// Real files in a scratch folder, and every fault of a disk at will.
class HeadlessFiles : public Files {
public:
    enum class Operation { read, replace, setAside };
    /// Returns the error with which the operation shall fail, or nothing to let it happen.
    using Fault = std::function<std::optional<Error>(Operation, const std::string& path)>;

    explicit HeadlessFiles(std::string resourceDirectory);
    ~HeadlessFiles() override;

    std::optional<std::string> documentDirectory() override;
    std::optional<std::string> defaultsFile() override { return m_files.defaultsFile(); }
    std::string resourceDirectory() override { return m_files.resourceDirectory(); }
    bool exists(const std::string& path) override;
    Result<std::string> read(const std::string& path) override;
    std::optional<Error> replace(const std::string& path, std::string_view bytes) override;
    std::optional<Error> setAside(const std::string& path) override;

    void setFault(Fault fault) { m_fault = std::move(fault); }
    /// From now on there is no file of this name, wherever it is.
    void setHidden(std::string fileName) { m_hidden = std::move(fileName); }
    void setHasDocumentDirectory(bool has) { m_hasDocumentDirectory = has; }
    /// How many files were written.
    int replacements() const { return m_replacements; }

private:
    std::optional<Error> fault(Operation, const std::string& path) const;

    std::string m_scratchFolder;
    PosixFiles m_files;
    Fault m_fault;
    std::string m_hidden;
    bool m_hasDocumentDirectory = true;
    int m_replacements = 0;
};

} // namespace velmorath
