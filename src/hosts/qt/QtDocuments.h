#pragma once

#include "Documents.h"

class QWidget;

namespace velmorath {

/// The clipboard, and the desktop's own file dialogs.
class QtDocuments final : public Documents {
public:
    /// Dialogs lie over this window.
    explicit QtDocuments(QWidget& window)
        : m_window(window)
    {
    }

    void share(const std::string& utf8, std::function<void(Shared)> answer) override;
    void save(const std::string& name, const std::string& bytes,
        std::function<void(std::optional<Error>)> answer) override;
    void open(std::function<void(Result<std::optional<std::string>>)> answer) override;

private:
    QWidget& m_window;
};

} // namespace velmorath
