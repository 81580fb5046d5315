#pragma once

#include "PosixFiles.h"
#include <functional>
#include <vector>

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
    std::optional<std::string> defaultsFile() override;
    std::string resourceDirectory() override { return m_files.resourceDirectory(); }
    bool exists(const std::string& path) override;
    Result<std::string> read(const std::string& path) override;
    std::optional<Error> setAside(const std::string& path, std::string_view why) override;
    std::optional<std::string> version(const std::string& path) override;
    std::vector<std::string> copiesBeside(const std::string& path) override;

    void setFault(Fault fault) { m_fault = std::move(fault); }
    /// From now on there is no file of this name, wherever it is.
    void setHidden(std::string fileName) { m_hidden = std::move(fileName); }
    void setHasDocumentDirectory(bool has) { m_hasDocumentDirectory = has; }
    void setHasDefaultsFile(bool has) { m_hasDefaultsFile = has; }
    /// From now on other programs may use the folder, too.
    void setShared(bool shared) { m_shared = shared; }
    /// From now on what became of a file is told when answer() is called, as by a machine that goes on
    /// writing while the program runs on. The host calls it before each frame.
    void setAnswersLate(bool late) { m_answersLate = late; }
    void answer();
    /// How many files were written.
    int replacements() const { return m_replacements; }

private:
    void write(const std::string& path, std::string_view bytes, Completion) override;

    std::optional<Error> fault(Operation, const std::string& path) const;

    std::string m_scratchFolder;
    PosixFiles m_files;
    Fault m_fault;
    std::string m_hidden;
    bool m_hasDocumentDirectory = true;
    bool m_hasDefaultsFile = true;
    bool m_shared = false;
    bool m_answersLate = false;
    std::vector<std::function<void()>> m_answers;
    int m_replacements = 0;
};

} // namespace velmorath
