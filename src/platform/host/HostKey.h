#pragma once

namespace velmorath {

/// The keys that mean something outside a text. Hosts say which keys of theirs these are.
enum class HostKey {
    up,
    down,
    left,
    right,
    home,
    end,
    pageUp,
    pageDown,
    /// To the next thing that keys can act on; with shift to the one before. Means nothing past the last one.
    tab,
    enter,
    space,
    escape,
    /// A new thing: Insert, or Control with N. With shift right below the one that keys act on.
    insert,
    /// Change the thing in place: F2.
    edit,
    /// Delete or Backspace.
    remove,
    /// Take the last change back: Control with Z, or Command.
    undo,
    /// Make it again: the same with shift.
    redo,
};

struct HostKeyPress {
    HostKey key = HostKey::tab;
    bool shift = false;
    bool alt = false;
    /// The key is being held down.
    bool isRepeat = false;
};

} // namespace velmorath
