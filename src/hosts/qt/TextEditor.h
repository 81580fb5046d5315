#pragma once

#include "Editor.h"
#include <QTextEdit>

namespace velmorath {

/// Edits many lines of plain text.
class TextEditor final : public QTextEdit, public Editor {
public:
    TextEditor(QWidget& parent, TextInputClient&, const QString& text, const QFont&, CGTextAlignment);

    QWidget& widget() override { return *this; }
    void setMargins(int above, int below) override;
    QRect geometryOver(const QRect& frame) const override { return frame.adjusted(0, -m_above, 0, m_below); }
    void start(const std::optional<QPoint>& tap, int scrolled) override;
    int scrolled() const override;
    QString text() const override;

protected:
    void keyPressEvent(QKeyEvent*) override;
    void inputMethodEvent(QInputMethodEvent*) override;

private:
    int m_above = 0;
    int m_below = 0;
};

} // namespace velmorath
