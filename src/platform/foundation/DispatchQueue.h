#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace velmorath {

/// Work that runs later on the main thread, in the order of its time and then of its arrival.
class DispatchQueue {
public:
    static DispatchQueue& main();

    /// Runs the work on the loop's next turn.
    void async(std::function<void()> work) { asyncAfter(0, std::move(work)); }

    /// Runs the work after so many seconds of Clock::now(). Less than zero means zero.
    void asyncAfter(double seconds, std::function<void()> work);

    /// Runs all work whose time has come. What that work adds waits for the next turn.
    void runDue();

    /// Drops all waiting work: the program is at its end.
    void removeAll();

private:
    struct Item {
        double time;
        std::uint64_t order;
        std::function<void()> work;

        bool operator<(const Item& other) const
        {
            return time != other.time ? time < other.time : order < other.order;
        }
    };

    void askForWakeUp();

    std::vector<Item> m_items; // sorted
    std::uint64_t m_nextOrder = 0;
};

} // namespace velmorath
