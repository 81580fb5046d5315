#pragma once

#include <cstdint>
#include <string>

namespace velmorath {

using SystemSoundID = std::uint32_t;

/// Vibrates instead of sounding.
constexpr SystemSoundID kSystemSoundID_Vibrate = 4095;

/// The identifier of a sound file, the same for the same file. The file is read when the sound plays.
SystemSoundID AudioServicesCreateSystemSoundID(const std::string& path);

/// Starts the sound and returns at once. An identifier that nobody made is silent.
void AudioServicesPlaySystemSound(SystemSoundID);

} // namespace velmorath
