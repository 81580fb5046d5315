#pragma once

#include <functional>

namespace velmorath {

/// Steps with each frame, as long as the object is there; frames keep coming for its sake. Whoever owns it
/// thereby says when it ends.
class CADisplayLink {
public:
    /// Stands still.
    CADisplayLink() = default;
    /// The step is told the frame's moment, in seconds of Clock::now(). It may end its own link.
    explicit CADisplayLink(std::function<void(double now)> step);
    ~CADisplayLink() { invalidate(); }
    CADisplayLink(CADisplayLink&&) noexcept;
    CADisplayLink& operator=(CADisplayLink&&) noexcept;

    bool isRunning() const { return m_link != 0; }
    void invalidate();

private:
    /// Zero while it stands still.
    int m_link = 0;
};

} // namespace velmorath
