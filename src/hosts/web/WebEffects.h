#pragma once

#include "Effects.h"

namespace velmorath {

class WebEffects final : public Effects {
public:
    void playSound(const std::string& path) override;
    void vibrate() override;
    void announce(const std::string& text) override;
    void setBadge(long long number) override;
    bool openAddress(const std::string& address) override;
    /// A browser does not tell whether anything takes such addresses: it asks its user.
    bool canSendMail() override { return true; }
    Device device() override;
    void requestNotificationPermission(std::function<void(bool granted)> answer) override;

    /// What the user answered.
    void permissionAnswered(bool granted);

private:
    std::function<void(bool granted)> m_answer;
};

} // namespace velmorath
