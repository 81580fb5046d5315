#include "DateText.h"
#include "DateFormatter.h"
#include "Host.h"
#include "Print.h"

namespace velmorath {

std::string ottieniData()
{
    print("viewcontroller   -----   ottieniData");
    DateFormatter formatter;
    if (const auto zone = TimeZone::named("UTC"))
        formatter.setTimeZone(*zone);
    std::string nuovaData = formatter.string(Host::current().clock().wallTime());
    print("👍👍👍👍👍👍 Local Time nuovaData : " + nuovaData);
    print(nuovaData);
    return nuovaData;
}

} // namespace velmorath
