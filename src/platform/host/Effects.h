#pragma once

#include <functional>
#include <string>

namespace velmorath {

/// What reaches the user other than by the screen. Main thread only. Every service may be absent: then
/// the call does nothing, and never waits.
class Effects {
public:
    virtual ~Effects() = default;

    /// Starts to play a sound file (mp3) and returns at once. A sound still playing goes on.
    virtual void playSound(const std::string& path) = 0;

    /// One short buzz.
    virtual void vibrate() = 0;

    /// The number on the program's icon; none is shown for zero and below.
    virtual void setBadge(long long number) = 0;

    /// Hands an address to whatever the machine opens such addresses with. False when nothing takes it.
    virtual bool openAddress(const std::string& address) = 0;

    /// Asks for permission to use the badge, sounds and alerts. The answer may come at once or never;
    /// a machine that does not ask grants it.
    virtual void requestNotificationPermission(bool badge, bool sound, bool alert, std::function<void(bool granted)> answer)
        = 0;
};

} // namespace velmorath
