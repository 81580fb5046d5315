#include "DateFormatter.h"
#include "Host.h"

namespace velmorath {

std::string DateFormatter::string(double wallTime) const
{
    return Host::current().locale().mediumDate(wallTime, m_timeZone);
}

} // namespace velmorath
