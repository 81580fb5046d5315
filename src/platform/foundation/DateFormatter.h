#pragma once

#include <string>

namespace velmorath {

/// Writes a day as the user is used to seeing it: a medium date, no time.
class DateFormatter {
public:
    /// An abbreviation such as "UTC". Without one, or with one that the machine does not know, the
    /// machine's own zone counts.
    void setTimeZone(std::string abbreviation) { m_timeZone = std::move(abbreviation); }

    /// The day of a moment, in seconds since 1970-01-01 00:00 UTC.
    std::string string(double wallTime) const;

private:
    std::string m_timeZone;
};

} // namespace velmorath
