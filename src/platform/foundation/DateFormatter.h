#pragma once

#include "Host.h"
#include <optional>
#include <string>
#include <string_view>

namespace velmorath {

/// A part of the world with a day of its own.
struct TimeZone {
    /// Nothing for one that the platform does not know: it knows "UTC".
    static std::optional<TimeZone> named(std::string_view abbreviation)
    {
        return abbreviation == "UTC" ? std::optional(TimeZone()) : std::nullopt;
    }
};

/// Writes a day as the user is used to seeing it: a medium date, no time.
class DateFormatter {
public:
    /// A moment's day is the one in UTC; this says that it shall be.
    void setTimeZone(TimeZone) { }

    /// The day of a moment, in seconds since 1970-01-01 00:00 UTC.
    std::string string(double wallTime) const { return Host::current().locale().mediumDate(wallTime); }
};

} // namespace velmorath
