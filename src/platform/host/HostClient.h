#pragma once

#include "Accessibility.h"
#include "CGContext.h"
#include "HostKey.h"
#include "Result.h"
#include <cstdint>
#include <vector>

namespace velmorath {

/// One finger at one moment.
struct HostTouch {
    enum class Phase { began, moved, ended, cancelled };

    /// The same from began to ended or cancelled, different from every other finger on the screen.
    std::int64_t identifier = 0;
    Phase phase = Phase::began;
    CGPoint location;
};

/// What the program is to the user just now.
enum class HostState {
    /// In use.
    active,
    /// In sight, but something else is in use.
    inactive,
    /// Out of sight.
    background,
};

/// What a host calls. One object implements it, the application. All on the main thread.
class HostClient {
public:
    virtual ~HostClient() = default;

    /// The fingers that changed since the last call, at a moment of Clock::now(). Wrong sequences (a
    /// move of an unknown finger, a second began) are ignored.
    virtual void touchesChanged(const std::vector<HostTouch>&, double time) = 0;

    /// A wheel or a touchpad turned over this place, by this many points (positive: towards the
    /// content's beginning, as a finger that drags down).
    virtual void scrolled(CGPoint location, CGVector by) = 0;

    /// A key went down, or repeats, while no text is edited. False when it means nothing here.
    virtual bool keyPressed(const HostKeyPress&) = 0;

    /// A file was handed to the program: dropped on it, or opened with it. False when it has no use for one
    /// now.
    virtual bool documentOpened(const Result<std::string>& file) = 0;

    /// Another program may have changed the user's documents.
    virtual void documentsChanged() = 0;

    /// The size changed, or how many pixels a point has: Screen knows it already. A frame follows.
    virtual void screenChanged() = 0;

    /// Brings everything up to this frame's moment and says which part of the screen, in points, must
    /// be drawn again; the null rectangle when none. May ask for the next frame.
    virtual CGRect prepareFrame() = 0;

    /// Draws what falls inside the rectangle, background included. Changes nothing, and may be called
    /// at any time, more than once or not at all.
    virtual void draw(CGContext&, const CGRect& area) = 0;

    /// What is on the screen, for those who do not see it: the screen on top and all that can be done there.
    /// Costs more than a frame: to be asked for only where somebody listens, and when frames have come to
    /// rest. An empty group before there is anything.
    virtual AccessibilityElement accessibilityTree() = 0;
    /// Does what a tap on an element would do. False when it has gone, has another label than when the
    /// tree was last asked for, or when nothing can be done.
    virtual bool pressElement(std::int64_t identifier) = 0;
    /// Does one of the element's actions, by its place among those that were told last.
    virtual bool performElementAction(std::int64_t identifier, std::size_t action) = 0;
    /// Points the keys at an element.
    virtual bool focusElement(std::int64_t identifier) = 0;

    /// The moment asked for with Clock::wakeAt() has come.
    virtual void wake() = 0;

    /// The program counts as active when it starts to run; told at each change from there.
    virtual void stateChanged(HostState) = 0;

    /// The program is about to end: what is being typed is kept, and saved before this returns.
    virtual void willTerminate() = 0;
};

} // namespace velmorath
