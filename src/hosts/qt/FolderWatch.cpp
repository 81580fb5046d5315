#include "FolderWatch.h"
#include <QDir>
#include <QFileInfo>
#include <utility>

namespace velmorath {

namespace {

constexpr int quietMilliseconds = 200;

} // namespace

FolderWatch::FolderWatch(QString folder, std::function<void()> changed)
    : m_folder(std::move(folder))
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietMilliseconds);
    QObject::connect(&m_quiet, &QTimer::timeout, &m_quiet, [this, changed = std::move(changed)] {
        watch();
        changed();
    });
    const auto wait = [this] { m_quiet.start(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_quiet, wait);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_quiet, wait);
}

void FolderWatch::lookNow()
{
    m_quiet.start();
}

void FolderWatch::watch()
{
    if (m_folder.isEmpty())
        return;
    // A folder that is made later is made in one that is there.
    QString folder = m_folder;
    while (!QFileInfo::exists(folder) && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    // Files that are written in place, and those that links lead to, do not change their folder.
    QStringList wanted{folder};
    if (folder == m_folder) {
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
            wanted.append(file.filePath());
    }
    const QStringList watched = m_watcher.directories() + m_watcher.files();
    for (const QString& path : watched) {
        if (!wanted.contains(path))
            m_watcher.removePath(path);
    }
    for (const QString& path : std::as_const(wanted)) {
        if (!watched.contains(path))
            m_watcher.addPath(path);
    }
}

} // namespace velmorath
