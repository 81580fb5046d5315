#include "QtSoundPlayer.h"
#include <QAudioDevice>
#include <QAudioOutput>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

namespace velmorath {

void QtSoundPlayer::play(const QString& path)
{
    if (QMediaDevices::defaultAudioOutput().isNull())
        return;
    // A machine that plays too slowly must not gather players without end.
    constexpr qsizetype mostAtOnce = 8;
    if (m_players.children().size() >= mostAtOnce)
        return;
    auto* player = new QMediaPlayer(&m_players);
    auto* output = new QAudioOutput(player);
    player->setAudioOutput(output);
    QObject::connect(
        player, &QMediaPlayer::mediaStatusChanged, player, [player](QMediaPlayer::MediaStatus status) {
            if (status == QMediaPlayer::EndOfMedia || status == QMediaPlayer::InvalidMedia)
                player->deleteLater();
        });
    QObject::connect(player, &QMediaPlayer::errorOccurred, player, [player] { player->deleteLater(); });
    player->setSource(QUrl::fromLocalFile(path));
    player->play();
}

} // namespace velmorath

extern "C" Q_DECL_EXPORT velmorath::SoundPlayer* velmorathMakeSoundPlayer()
{
    return new velmorath::QtSoundPlayer;
}
