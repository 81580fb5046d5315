#pragma once

#include "Documents.h"
#include "FilePortal.h"

class QString;
class QWidget;

namespace velmorath {

/// The clipboard, and the desktop's own file dialogs: those of its portal, or else of Qt.
class QtDocuments final : public Documents {
public:
    /// Dialogs lie over this window.
    explicit QtDocuments(QWidget& window)
        : m_window(window)
        , m_portal(window)
    {
    }

    /// The absolute path of a file that is named by a path or by a file's address.
    static std::string path(const std::string& name);

    /// What is in a file; an error for one that is too long or no ordinary file, too.
    static Result<std::string> read(const QString& path);

    void share(const std::string& utf8, std::function<void(Shared)> answer) override;
    void save(const std::string& name, const std::string& bytes,
        std::function<void(std::optional<Error>)> answer) override;
    void open(std::function<void(Result<std::optional<std::string>>)> answer) override;

    /// To be called when the program is on the session bus.
    void listen() { m_portal.listen(); }

private:
    QWidget& m_window;
    FilePortal m_portal;
};

} // namespace velmorath
