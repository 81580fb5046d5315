#include "UNUserNotificationCenter.h"
#include "Host.h"

namespace velmorath {

void UNUserNotificationCenter::requestAuthorization(unsigned, std::function<void(bool)> completion)
{
    Host::current().effects().requestNotificationPermission(std::move(completion));
}

} // namespace velmorath
