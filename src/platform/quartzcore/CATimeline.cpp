#include "CATimeline.h"
#include "Host.h"
#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace velmorath {

CATimeline& CATimeline::main()
{
    static CATimeline s_main;
    return s_main;
}

void CATimeline::advance(double now)
{
    m_frameTime = now;

    std::vector<int> links;
    for (const auto& entry : m_links)
        links.push_back(entry.first);
    for (int link : links) {
        const auto found = m_links.find(link);
        if (found != m_links.end()) {
            const auto step = found->second;
            step(now);
        }
    }

    runCompletionsUntil(now);
    if (!m_ends.empty() || !m_links.empty())
        Host::current().screen().requestFrame();
}

void CATimeline::finish()
{
    double end = m_frameTime;
    for (const End& waiting : m_ends)
        end = std::max(end, waiting.time);
    runCompletionsUntil(std::numeric_limits<double>::infinity());
    if (end > m_frameTime)
        keepRunningUntil(end);
}

std::vector<CATimeline::End>::iterator CATimeline::firstEndAfter(double time)
{
    return std::find_if(m_ends.begin(), m_ends.end(), [time](const End& end) { return end.time > time; });
}

void CATimeline::runCompletionsUntil(double now)
{
    const auto stillRunning = firstEndAfter(now);
    const std::vector<End> over(
        std::make_move_iterator(m_ends.begin()), std::make_move_iterator(stillRunning));
    m_ends.erase(m_ends.begin(), stillRunning);
    for (const End& end : over) {
        if (end.completion)
            end.completion();
    }
}

void CATimeline::keepRunningUntil(double end, std::function<void()> completion)
{
    m_ends.insert(firstEndAfter(end), {end, std::move(completion)});
    Host::current().screen().requestFrame();
}

int CATimeline::addDisplayLink(std::function<void(double)> step)
{
    m_links.emplace(m_nextLink, std::move(step));
    Host::current().screen().requestFrame();
    return m_nextLink++;
}

void CATimeline::removeDisplayLink(int link)
{
    m_links.erase(link);
}

void CATimeline::reset()
{
    m_animating.reset();
    m_ends.clear();
    m_links.clear();
}

} // namespace velmorath
