#pragma once

class QString;

namespace velmorath {

/// What the sound library gives the program. Used on one thread, which has a Qt loop.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Starts a sound file and returns. Sounds still playing go on; what cannot be played is silent.
    virtual void play(const QString& path) = 0;
};

/// The library's one entry, under the name "velmorathMakeSoundPlayer". The caller owns the player.
using MakeSoundPlayer = SoundPlayer* (*)();

} // namespace velmorath
