#pragma once

#include "CGGeometry.h"
#include "CGText.h"
#include <optional>
#include <string>

namespace velmorath {

/// Told what happens while a text is edited. It may call TextInput::end() from any of these.
class TextInputClient {
public:
    virtual ~TextInputClient() = default;

    /// The text changed, unfinished input of an input method included.
    virtual void textInputDidChange(const std::string& utf8) = 0;

    /// Return was pressed in one line, or the editing was broken off by Escape or by the keyboard's
    /// own button: the client decides whether the editing ends.
    virtual void textInputDidReturn() = 0;
};

struct TextInputTraits {
    /// Return makes a new line.
    bool multiline = false;
    bool darkKeyboard = false;
    /// The keyboard's return key says "done".
    bool doneKey = false;
    /// What the field is, for those who do not see it.
    std::string label{};
    /// Where the tap was that started the editing, in points from the field's corner: the caret goes to the
    /// place in the text that is nearest. Without one it goes to the end.
    std::optional<CGPoint> tap{};
    /// How far down many lines are scrolled, in points. The editor starts there, and leaves it only to keep
    /// the caret in sight.
    CGFloat scrolled = 0;

    bool operator==(const TextInputTraits&) const = default;
};

/// The machine's own text editing, laid over the field that is edited: caret, selection, clipboard,
/// input methods, spelling. At most one text is edited at a time. Main thread only. Required.
class TextInput {
public:
    virtual ~TextInput() = default;

    /// Starts to edit. The client is kept until end(). A text that is being
    /// edited already is ended first.
    virtual void begin(TextInputClient&, const std::string& utf8, const CGTextStyle&, TextInputTraits) = 0;

    /// Where the edited field is now, in screen points: the editor lies exactly there, and shows only
    /// what falls inside the clip, which may be empty. The opacity is from 0 to 1. Called with each frame in
    /// which it moved.
    virtual void place(const CGRect& frame, const CGRect& clip, CGFloat opacity) = 0;

    /// How far down many lines are scrolled now, in points; 0 when nothing is edited.
    virtual CGFloat scrolled() const = 0;

    /// Ends the editing and takes the editor away. What an input method still holds is taken over, and
    /// the change reported, before this returns. Does nothing when nothing is edited.
    virtual void end() = 0;
};

} // namespace velmorath
