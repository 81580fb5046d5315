#include "WebLocale.h"
#include "IncomingBytes.h"
#include "Lines.h"
#include "Page.h"

namespace velmorath {

std::vector<std::string> WebLocale::preferredLanguages()
{
    return splitLines(IncomingBytes::take(pageLanguages()));
}

std::string WebLocale::mediumDate(double wallTime, std::string_view timeZone)
{
    return IncomingBytes::take(pageMediumDate(wallTime, timeZone.data(), timeZone.size()));
}

} // namespace velmorath
