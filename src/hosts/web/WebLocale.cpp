#include "WebLocale.h"
#include "IncomingBytes.h"
#include "Lines.h"
#include "Page.h"

namespace velmorath {

std::vector<std::string> WebLocale::preferredLanguages()
{
    return splitLines(IncomingBytes::take(pageLanguages()));
}

std::string WebLocale::mediumDate(double wallTime)
{
    return IncomingBytes::take(pageMediumDate(wallTime));
}

} // namespace velmorath
