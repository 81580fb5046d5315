#pragma once

#include <string_view>

namespace velmorath {

/// Where diagnostic lines go. Main thread only. A host without a console may drop them.
class Console {
public:
    virtual ~Console() = default;

    /// One UTF-8 line without its line break. May be kept until the host's loop goes idle.
    virtual void writeLine(std::string_view line) = 0;

    /// Hands on what was kept. Called by the platform only before the program ends in an error.
    virtual void flush() = 0;
};

} // namespace velmorath
