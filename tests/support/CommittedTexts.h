#pragma once

#include <set>
#include <string>
#include <vector>

namespace velmorath {

/// A folder of committed texts, each of which a test makes once more and compares. With
/// VELMORATH_WRITE_DRAWINGS set in the environment they are written anew instead: see docs/contributing.md.
class CommittedTexts {
public:
    explicit CommittedTexts(std::string folder);

    /// Fails at the first line that is another one.
    void compare(const std::string& name, std::vector<std::string> lines);
    /// At the end: what is committed but was not made is old.
    void compareNames() const;

private:
    std::string m_folder;
    bool m_writes;
    std::set<std::string> m_names;
};

} // namespace velmorath
