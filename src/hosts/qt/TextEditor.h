#pragma once

#include "Editor.h"
#include <QTextEdit>

namespace velmorath {

/// Edits many lines of plain text.
class TextEditor final : public QTextEdit, public Editor {
public:
    TextEditor(QWidget& parent, TextInputClient&, const QString& text, const QFont&, CGTextAlignment);

    QWidget& widget() override { return *this; }
    QRect geometryOver(const QRect& frame) const override { return frame; }
    QString text() const override;

protected:
    void keyPressEvent(QKeyEvent*) override;
    void inputMethodEvent(QInputMethodEvent*) override;
};

} // namespace velmorath
