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

void HeadlessEffects::requestNotificationPermission(std::function<void(bool)> answer)
{
    ++m_permissionsAsked;
    answer(true);
}

} // namespace velmorath
