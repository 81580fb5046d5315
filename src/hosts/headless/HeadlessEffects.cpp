#include "HeadlessEffects.h"

namespace velmorath {

bool HeadlessEffects::openAddress(const std::string& address)
{
    for (const std::string& scheme : m_refusedSchemes) {
        if (address.starts_with(scheme))
            return false;
    }
    m_openedAddresses.push_back(address);
    return true;
}

void HeadlessEffects::requestNotificationPermission(
    bool badge, bool sound, bool alert, std::function<void(bool)> answer)
{
    m_permissionsAsked.push_back({badge, sound, alert});
    answer(true);
}

} // namespace velmorath
