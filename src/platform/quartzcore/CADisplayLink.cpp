#include "CADisplayLink.h"
#include "CATimeline.h"
#include <utility>

namespace velmorath {

CADisplayLink::CADisplayLink(std::function<void(double)> step)
    : m_link(CATimeline::main().addDisplayLink(std::move(step)))
{
}

CADisplayLink::CADisplayLink(CADisplayLink&& other) noexcept
    : m_link(std::exchange(other.m_link, 0))
{
}

CADisplayLink& CADisplayLink::operator=(CADisplayLink&& other) noexcept
{
    std::swap(m_link, other.m_link);
    other.invalidate();
    return *this;
}

void CADisplayLink::invalidate()
{
    if (m_link != 0)
        CATimeline::main().removeDisplayLink(std::exchange(m_link, 0));
}

} // namespace velmorath
