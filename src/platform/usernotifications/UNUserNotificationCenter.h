#pragma once

#include <functional>

namespace velmorath {

/// What a program may use to get the user's attention; the values are added together.
struct UNAuthorizationOptions {
    static constexpr unsigned badge = 1;
    static constexpr unsigned sound = 2;
    static constexpr unsigned alert = 4;
};

class UNUserNotificationCenter {
public:
    static UNUserNotificationCenter current() { return {}; }

    /// Asks the user, where the machine asks: machines know one permission for all of the options. The
    /// answer comes later, or never.
    void requestAuthorization(unsigned options, std::function<void(bool granted)> completion);
};

} // namespace velmorath
