#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmorath {

/// By how much the day in a part of the world is ahead of the day in UTC.
struct TimeZone {
    double secondsFromUTC = 0;

    /// Nothing for one that the platform does not know: it knows "UTC".
    static std::optional<TimeZone> named(std::string_view abbreviation);
};

/// Writes a day as the user is used to seeing it: a medium date, no time.
class DateFormatter {
public:
    /// The zone in which a moment's day is meant; UTC when none is set.
    void setTimeZone(TimeZone timeZone) { m_timeZone = timeZone; }

    /// The day of a moment, in seconds since 1970-01-01 00:00 UTC.
    std::string string(double wallTime) const;

private:
    TimeZone m_timeZone;
};

} // namespace velmorath
