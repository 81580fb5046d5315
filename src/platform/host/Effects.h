#pragma once

#include <functional>
#include <string>

namespace velmorath {

/// The machine that the program runs on, in words for the makers. A text that the machine does not know is
/// empty.
struct Device {
    /// Such as "PinePhone" or "PC".
    std::string model;
    /// What its owner called it.
    std::string name;
    std::string systemName;
    std::string systemVersion;
};

/// What reaches the user other than by the screen. Main thread only. Every service may be absent: then
/// the call does nothing, and never waits.
class Effects {
public:
    virtual ~Effects() = default;

    /// Starts to play a sound file (mp3) and returns at once. A sound still playing goes on.
    virtual void playSound(const std::string& path) = 0;

    /// One short buzz.
    virtual void vibrate() = 0;

    /// Says what happened to those who do not see it, after what they hear just now. In the user's language.
    virtual void announce(const std::string& text) = 0;

    /// The number on the program's icon; none is shown for zero and below.
    virtual void setBadge(long long number) = 0;

    /// Hands an address to whatever the machine opens such addresses with. False when nothing takes it.
    virtual bool openAddress(const std::string& address) = 0;

    /// Whether openAddress() would find a program for "mailto:" addresses.
    virtual bool canSendMail() = 0;

    /// The same for as long as the program runs.
    virtual Device device() = 0;

    /// Asks for permission to get the user's attention: the badge, sounds and alerts. The answer may come
    /// at once or never; a machine that does not ask grants it.
    virtual void requestNotificationPermission(std::function<void(bool granted)> answer) = 0;
};

} // namespace velmorath
