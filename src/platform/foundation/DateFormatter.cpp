#include "DateFormatter.h"
#include "Host.h"

namespace velmorath {

std::optional<TimeZone> TimeZone::named(std::string_view abbreviation)
{
    return abbreviation == "UTC" ? std::optional<TimeZone>(TimeZone()) : std::nullopt;
}

std::string DateFormatter::string(double wallTime) const
{
    return Host::current().locale().mediumDate(wallTime + m_timeZone.secondsFromUTC);
}

} // namespace velmorath
