#include "AudioServices.h"
#include "Host.h"
#include <algorithm>
#include <vector>

namespace velmorath {

namespace {

constexpr SystemSoundID firstOwnSound = 4096;

/// One path per sound file: an identifier stands for its file for as long as the program runs.
std::vector<std::string>& sounds()
{
    static std::vector<std::string> s_sounds;
    return s_sounds;
}

} // namespace

SystemSoundID AudioServicesCreateSystemSoundID(const std::string& path)
{
    std::vector<std::string>& known = sounds();
    const auto place = std::find(known.begin(), known.end(), path) - known.begin();
    if (place == std::ssize(known))
        known.push_back(path);
    return firstOwnSound + static_cast<SystemSoundID>(place);
}

void AudioServicesPlaySystemSound(SystemSoundID identifier)
{
    if (identifier == kSystemSoundID_Vibrate) {
        Host::current().effects().vibrate();
        return;
    }
    const std::size_t index = identifier - firstOwnSound;
    if (identifier >= firstOwnSound && index < sounds().size())
        Host::current().effects().playSound(sounds()[index]);
}

} // namespace velmorath
