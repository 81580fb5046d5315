#include "HeadlessLocale.h"
#include <chrono>
#include <cmath>

namespace velmorath {

std::string HeadlessLocale::mediumDate(double wallTime)
{
    static const char* const months[] = {
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const auto days = std::chrono::days(static_cast<int>(std::floor(wallTime / 86400)));
    const std::chrono::year_month_day date{std::chrono::sys_days(days)};
    return std::string(months[static_cast<unsigned>(date.month()) - 1]) + " "
        + std::to_string(static_cast<unsigned>(date.day())) + ", "
        + std::to_string(static_cast<int>(date.year()));
}

} // namespace velmorath
