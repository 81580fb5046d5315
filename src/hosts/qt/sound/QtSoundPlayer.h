#pragma once

#include "SoundPlayer.h"
#include <QObject>

namespace velmorath {

/// Plays through Qt Multimedia, with one player for each sound that is heard.
class QtSoundPlayer final : public SoundPlayer {
public:
    void play(const QString& path) override;

private:
    QObject m_players;
};

} // namespace velmorath
