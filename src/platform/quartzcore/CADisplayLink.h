#pragma once

#include "CATimeline.h"

namespace velmorath {

/// Steps with each frame, as long as the object is there; frames keep coming for its sake. Whoever owns it
/// thereby says when it ends.
class CADisplayLink {
public:
    /// Stands still.
    CADisplayLink() = default;
    /// The step is told the frame's moment, in seconds of Clock::now(). It may end its own link.
    explicit CADisplayLink(CATimeline::Step step)
        : m_step(std::make_shared<const CATimeline::Step>(std::move(step)))
    {
        CATimeline::main().addStep(m_step);
    }
    CADisplayLink(CADisplayLink&&) = default;
    CADisplayLink& operator=(CADisplayLink&&) = default;

    bool isRunning() const { return m_step != nullptr; }
    void invalidate() { m_step.reset(); }

private:
    std::shared_ptr<const CATimeline::Step> m_step;
};

} // namespace velmorath
