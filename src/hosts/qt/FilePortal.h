#pragma once

#include <QObject>
#include <QVariantMap>
#include <functional>

class QWidget;

namespace velmorath {

/// The desktop's own way to choose a file (org.freedesktop.portal.FileChooser), where it has one: it fits the
/// screen of a phone, and reaches out of a sandbox.
class FilePortal : public QObject {
    Q_OBJECT

public:
    using Chosen = std::function<void(const QString& path)>;
    using Absent = std::function<void()>;

    /// What is chosen is for this window, which the desktop knows by its number on some platforms only.
    explicit FilePortal(const QWidget& window)
        : m_window(window)
    {
    }

    /// To be called when the program is on the session bus. Before that there is no such way.
    void listen() { m_isOnBus = true; }

    /// Lets the user choose a file to read, or where to put one for which a name is proposed. Returns at
    /// once; the later one of two choices is the one that counts. Calls `absent` where the desktop has
    /// nothing for it.
    void chooseToOpen(Chosen, Absent);
    void chooseToSave(const QString& name, Chosen, Absent);

private Q_SLOTS:
    void answered(uint response, const QVariantMap& results);

private:
    void ask(const QString& method, QVariantMap options, Chosen, Absent);

    const QWidget& m_window;
    bool m_isOnBus = false;
    int m_lastRequest = 0;
    QString m_request;
    Chosen m_chosen;
};

} // namespace velmorath
