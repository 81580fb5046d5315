#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace velmorath {

/// What an animation block says about the changes made inside it. Seconds.
struct CAAnimationTiming {
    double begin = 0;
    double duration = 0;
};

/// The time by which everything on the screen moves. It stands still between frames, and asks for the
/// next frame as long as something moves.
class CATimeline {
public:
    /// Told a frame's moment.
    using Step = std::function<void(double now)>;

    static CATimeline& main();

    /// The moment that the current frame shows, in seconds of Clock::now().
    double frameTime() const { return m_frameTime; }

    /// Brings the timeline to this frame's moment: display links step, then completions whose time has
    /// come run. Asks for another frame while anything still moves.
    void advance(double now);

    /// While this is set, changes to layers are animated with it.
    const std::optional<CAAnimationTiming>& animating() const { return m_animating; }
    void setAnimating(std::optional<CAAnimationTiming> timing) { m_animating = timing; }

    /// Keeps frames coming until this moment, and runs the completion at the first frame after it.
    void keepRunningUntil(double end, std::function<void()> completion = {});

    /// Runs every completion that still waits, at once: there may be no more frames. Should there be some,
    /// what still moves goes on to its end.
    void finish();

    /// Drops whatever still moves or waits: the program is at its end.
    void reset();

private:
    friend class CADisplayLink;

    /// Steps with each frame for as long as it is there.
    void addStep(const std::shared_ptr<const Step>&);

    void runCompletionsUntil(double now);

    double m_frameTime = 0;
    std::optional<CAAnimationTiming> m_animating;
    /// By time; of the same time, in the order in which they were asked for.
    std::multimap<double, std::function<void()>> m_completions;
    std::vector<std::weak_ptr<const Step>> m_steps;
};

} // namespace velmorath
