#include "DispatchQueue.h"
#include "Host.h"
#include <algorithm>
#include <limits>

namespace velmorath {

DispatchQueue& DispatchQueue::main()
{
    static DispatchQueue s_main;
    return s_main;
}

void DispatchQueue::asyncAfter(double seconds, std::function<void()> work)
{
    Item item{Host::current().clock().now() + std::max(0.0, seconds), m_nextOrder++, std::move(work)};
    m_items.insert(std::upper_bound(m_items.begin(), m_items.end(), item), std::move(item));
    askForWakeUp();
}

void DispatchQueue::runDue()
{
    const double now = Host::current().clock().now();
    const std::uint64_t firstNewcomer = m_nextOrder;
    for (;;) {
        const auto next = std::find_if(
            m_items.begin(), m_items.end(), [&](const Item& item) { return item.order < firstNewcomer; });
        if (next == m_items.end() || next->time > now)
            break;
        const std::function<void()> work = std::move(next->work);
        m_items.erase(next);
        work();
    }
    askForWakeUp();
}

void DispatchQueue::removeAll()
{
    m_items.clear();
    askForWakeUp();
}

void DispatchQueue::askForWakeUp()
{
    Host::current().clock().wakeAt(
        m_items.empty() ? std::numeric_limits<double>::infinity() : m_items.front().time);
}

} // namespace velmorath
