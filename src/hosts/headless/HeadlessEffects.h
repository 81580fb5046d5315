#pragma once

#include "Effects.h"
#include <optional>
#include <string>
#include <vector>

namespace velmorath {

/// Keeps what would have reached the user.
class HeadlessEffects : public Effects {
public:
    void playSound(const std::string& path) override { m_felt.push_back(path.substr(path.rfind('/') + 1)); }
    void vibrate() override { m_felt.emplace_back("vibration"); }
    void announce(const std::string& text) override { m_announced.push_back(text); }
    void setBadge(long long number) override { m_badge = number; }
    bool openAddress(const std::string& address) override;
    bool canSendMail() override { return m_canSendMail; }
    Device device() override { return m_device; }
    void requestNotificationPermission(std::function<void(bool)> answer) override;

    /// File names of sounds and the word "vibration", in order.
    const std::vector<std::string>& felt() const { return m_felt; }
    void clearFelt() { m_felt.clear(); }
    /// What was said to those who do not see the screen, in order.
    const std::vector<std::string>& announced() const { return m_announced; }
    /// Nothing before the first time that it is set.
    std::optional<long long> badge() const { return m_badge; }
    /// From now on nothing takes addresses with this scheme.
    void refuseScheme(const std::string& scheme) { m_refusedSchemes.push_back(scheme + ":"); }
    void setCanSendMail(bool can) { m_canSendMail = can; }
    void setDevice(Device device) { m_device = std::move(device); }
    const std::vector<std::string>& openedAddresses() const { return m_openedAddresses; }
    /// How many times.
    int permissionsAsked() const { return m_permissionsAsked; }

private:
    std::vector<std::string> m_felt;
    std::vector<std::string> m_announced;
    std::optional<long long> m_badge;
    std::vector<std::string> m_refusedSchemes;
    bool m_canSendMail = true;
    Device m_device{"Phone", "Test phone", "Headless", "1.0"};
    std::vector<std::string> m_openedAddresses;
    int m_permissionsAsked = 0;
};

} // namespace velmorath
