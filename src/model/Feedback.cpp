#include "Feedback.h"
#include "AudioServices.h"
#include "Bundle.h"
#include "FatalError.h"

namespace velmorath {

void giveFeedback(std::string_view sound, std::string_view soundEffect, std::string_view vibration)
{
    if (soundEffect == "true") {
        const auto path = Bundle::main().path(sound, "mp3");
        if (!path)
            fatalError("The sound " + std::string(sound) + ".mp3 is missing");
        AudioServicesPlaySystemSound(AudioServicesCreateSystemSoundID(*path));
    }
    if (vibration == "true")
        AudioServicesPlaySystemSound(kSystemSoundID_Vibrate);
}

} // namespace velmorath
