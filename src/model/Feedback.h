#pragma once

#include <string_view>

namespace velmorath {

/// What the user hears and feels of a touch: starts the sound resource "<sound>.mp3" if `soundEffect` is
/// "true", then vibrates if `vibration` is "true". A sound that is to be played but missing ends the
/// program.
void giveFeedback(std::string_view sound, std::string_view soundEffect, std::string_view vibration);

} // namespace velmorath
