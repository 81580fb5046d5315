#pragma once

#include "Console.h"
#include <QObject>
#include <string>

namespace velmorath {

/// Standard output. Lines are kept until the Qt loop is about to wait.
class QtConsole final : public Console {
public:
    QtConsole();
    ~QtConsole() override;

    void writeLine(std::string_view line) override;
    void flush() override;

private:
    std::string m_kept;
    QObject m_connection;
};

} // namespace velmorath
