#pragma once

#include "Console.h"
#include "Page.h"

namespace velmorath {

/// The browser's own console, which its tools for developers show.
class WebConsole final : public Console {
public:
    void writeLine(std::string_view line) override { pageWriteLine(line.data(), line.size()); }
    void flush() override { }
};

} // namespace velmorath
