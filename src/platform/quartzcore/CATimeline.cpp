#include "CATimeline.h"
#include "Host.h"
#include <limits>

namespace velmorath {

CATimeline& CATimeline::main()
{
    static CATimeline s_main;
    return s_main;
}

void CATimeline::advance(double now)
{
    m_frameTime = now;
    const auto steps = m_steps;
    for (const auto& weakStep : steps) {
        if (const auto step = weakStep.lock())
            (*step)(now);
    }
    std::erase_if(m_steps, [](const auto& step) { return step.expired(); });
    runCompletionsUntil(now);
    if (!m_completions.empty() || !m_steps.empty())
        Host::current().screen().requestFrame();
}

void CATimeline::finish()
{
    const double end = m_completions.empty() ? m_frameTime : m_completions.rbegin()->first;
    runCompletionsUntil(std::numeric_limits<double>::infinity());
    if (end > m_frameTime)
        keepRunningUntil(end);
}

void CATimeline::runCompletionsUntil(double now)
{
    // What these ask for waits for the next time.
    decltype(m_completions) over;
    while (!m_completions.empty() && m_completions.begin()->first <= now)
        over.insert(over.end(), m_completions.extract(m_completions.begin()));
    for (const auto& [time, completion] : over) {
        if (completion)
            completion();
    }
}

void CATimeline::keepRunningUntil(double end, std::function<void()> completion)
{
    m_completions.emplace(end, std::move(completion));
    Host::current().screen().requestFrame();
}

void CATimeline::addStep(const std::shared_ptr<const Step>& step)
{
    m_steps.push_back(step);
    Host::current().screen().requestFrame();
}

void CATimeline::reset()
{
    m_animating.reset();
    m_completions.clear();
    m_steps.clear();
}

} // namespace velmorath
