#include "QtConsole.h"
#include <QAbstractEventDispatcher>
#include <cstdio>

namespace velmorath {

QtConsole::QtConsole()
{
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
        &m_connection, [this] { flush(); });
}

QtConsole::~QtConsole()
{
    flush();
}

void QtConsole::writeLine(std::string_view line)
{
    m_kept += line;
    m_kept += '\n';
    constexpr std::size_t mostToKeep = 65536;
    if (m_kept.size() > mostToKeep)
        flush();
}

void QtConsole::flush()
{
    if (m_kept.empty())
        return;
    std::fwrite(m_kept.data(), 1, m_kept.size(), stdout);
    std::fflush(stdout);
    m_kept.clear();
}

} // namespace velmorath
