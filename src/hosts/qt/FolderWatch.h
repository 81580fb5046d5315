#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <functional>

namespace velmorath {

/// Tells when anything was changed in a folder, by whomever, as soon as it has been quiet there for a moment.
/// The folder need not be there yet. Needs no wake-ups while nothing happens.
class FolderWatch {
public:
    FolderWatch(QString folder, std::function<void()> changed);

    /// For changes that nobody is told of, such as those on a network's disk: tells in any case.
    void lookNow();

private:
    void watch();

    QString m_folder;
    QFileSystemWatcher m_watcher;
    QTimer m_quiet;
};

} // namespace velmorath
