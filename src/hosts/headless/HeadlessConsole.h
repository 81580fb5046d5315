#pragma once

#include "Console.h"
#include <string>
#include <vector>

namespace velmorath {

/// Keeps the lines.
class HeadlessConsole : public Console {
public:
    void writeLine(std::string_view line) override { m_lines.emplace_back(line); }
    void flush() override { }

    const std::vector<std::string>& lines() const { return m_lines; }
    void clear() { m_lines.clear(); }

private:
    std::vector<std::string> m_lines;
};

} // namespace velmorath
