#pragma once

#include "TextInput.h"
#include <QString>
#include <functional>
#include <optional>

class QInputMethodEvent;
class QPoint;
class QRect;
class QWidget;

namespace velmorath {

/// One of Qt's own editors, with a transparent background, as the text input lays it over a field.
class Editor {
public:
    explicit Editor(TextInputClient& client)
        : m_client(&client)
    {
    }
    virtual ~Editor() = default;

    virtual QWidget& widget() = 0;

    /// Many lines are seen this far above and below the rectangle, too, when they are scrolled.
    virtual void setMargins(int, int) { }

    /// Where the widget lies so that its text covers the same text drawn in this rectangle.
    virtual QRect geometryOver(const QRect&) const = 0;

    /// The widget has its place now. The caret goes where the tap was, in the widget's points.
    virtual void start(const std::optional<QPoint>& tap, int scrolled) = 0;

    /// How far down it is scrolled, in points.
    virtual int scrolled() const { return 0; }

    /// Unfinished input of an input method included.
    virtual QString text() const = 0;

    /// Ends what an input method holds, reports the last change, and calls nobody any more.
    void finish();

    /// Return was pressed in one line, or the editing is broken off.
    void didReturn();

protected:
    /// The client hears of it when the text is another than the last one it heard of.
    void textMayHaveChanged();

    /// What the client knows without being told.
    void setKnownText(const QString& text) { m_knownText = text; }

    /// An input method said something: `tell` lets Qt's editor hear it.
    void inputMethodSaid(const QInputMethodEvent&, const std::function<void()>& tell);
    /// What an input method has not finished yet; it stands at the caret.
    const QString& unfinished() const { return m_unfinished; }

private:
    TextInputClient* m_client;
    QString m_knownText;
    QString m_unfinished;
};

} // namespace velmorath
