#pragma once

#include "Editor.h"
#include <QLineEdit>

namespace velmorath {

/// Edits one line.
class LineEditor final : public QLineEdit, public Editor {
public:
    LineEditor(QWidget& parent, TextInputClient&, const QString& text, CGTextAlignment, bool doneKey);

    QWidget& widget() override { return *this; }
    QRect geometryOver(const QRect&) const override;
    QString text() const override;
    QVariant inputMethodQuery(Qt::InputMethodQuery) const override;

protected:
    void keyPressEvent(QKeyEvent*) override;
    void inputMethodEvent(QInputMethodEvent*) override;

private:
    void removeLineBreaks(const QString& edited);

    bool m_doneKey;
};

} // namespace velmorath
