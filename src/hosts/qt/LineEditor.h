#pragma once

#include "Editor.h"
#include <QLineEdit>

namespace velmorath {

/// Edits a text in one line. Line breaks that it has already are kept; what comes in gets blanks instead.
class LineEditor final : public QLineEdit, public Editor {
public:
    LineEditor(QWidget& parent, TextInputClient&, const QString& text, CGTextAlignment, bool doneKey);

    QWidget& widget() override { return *this; }
    QRect geometryOver(const QRect&) const override;
    void start(const std::optional<QPoint>& tap, int scrolled) override;
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
