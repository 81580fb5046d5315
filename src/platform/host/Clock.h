#pragma once

namespace velmorath {

/// Time. Main thread only. Required.
class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since some fixed moment; never goes back, stands still for nobody.
    virtual double now() const = 0;

    /// Seconds since 1970-01-01 00:00 UTC, as the machine's calendar clock has it.
    virtual double wallTime() const = 0;

    /// HostClient::wake() is called once at or soon after this moment of now(). A later call replaces
    /// an earlier one; infinity means that no wake-up is wanted.
    virtual void wakeAt(double time) = 0;
};

} // namespace velmorath
