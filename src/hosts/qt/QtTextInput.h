#pragma once

#include "TextInput.h"
#include <QPoint>
#include <QPointer>

class QWidget;

namespace velmorath {

class Editor;
class EditorEffect;
class TextCache;

/// Lays one of Qt's editors over the field.
class QtTextInput final : public TextInput {
public:
    /// Editors are children of the screen.
    QtTextInput(QWidget& screen, TextCache& fonts);

    void begin(TextInputClient&, const std::string& utf8, const CGTextStyle&, TextInputTraits) override;
    void place(const CGRect& frame, const CGRect& clip, CGFloat opacity) override;
    CGFloat scrolled() const override;
    void end() override;

    /// Lets the client end the editing, as Escape does.
    void breakOff();

private:
    /// The editor has its place now.
    void startAt(const TextInputTraits&, QPoint textCorner);

    QWidget& m_screen;
    TextCache& m_fonts;
    /// Shows what falls inside the clip, and owns the editor, which owns the effect.
    QPointer<QWidget> m_window;
    Editor* m_editor = nullptr;
    /// How it is to start when it has its place; nothing when it has started.
    std::optional<TextInputTraits> m_start;
    EditorEffect* m_effect = nullptr;
};

} // namespace velmorath
