#include "UNUserNotificationCenter.h"
#include "Host.h"

namespace velmorath {

void UNUserNotificationCenter::requestAuthorization(unsigned options, std::function<void(bool)> completion)
{
    const auto has = [options](unsigned option) { return (options & option) != 0; };
    Host::current().effects().requestNotificationPermission(has(UNAuthorizationOptions::badge),
        has(UNAuthorizationOptions::sound), has(UNAuthorizationOptions::alert), std::move(completion));
}

} // namespace velmorath
