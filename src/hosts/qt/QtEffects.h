#pragma once

#include "AddressHandlers.h"
#include "Effects.h"
#include "ScreenWidget.h"
#include <QObject>
#include <QString>
#include <QThread>
#include <memory>

namespace velmorath {

class SoundPlayer;

/// Sounds, and the services of the desktop. All but the opening of addresses happens on a thread of its
/// own that starts at the first effect: sound libraries take their time to load, and a bus to answer.
class QtEffects final : public Effects {
public:
    /// The screen outlives this. The library is loaded at the first sound.
    QtEffects(ScreenWidget& screen, QString soundLibrary);
    ~QtEffects() override;

    void playSound(const std::string& path) override;
    void vibrate() override;
    void announce(const std::string& text) override { m_screen.announce(text); }
    void setBadge(long long number) override;
    bool openAddress(const std::string& address) override;
    bool canSendMail() override;
    Device device() override;
    void requestNotificationPermission(std::function<void(bool granted)> answer) override;

    /// Calls back, on this thread, when the program is on the session bus. Never where there is none.
    void whenOnSessionBus(std::function<void()> callback);

private:
    void inBackground(std::function<void()>);
    void loadSoundPlayer();
    bool hasProgramFor(const QString& scheme);

    ScreenWidget& m_screen;
    AddressHandlers m_handlers;
    QString m_soundLibrary;
    std::unique_ptr<QThread> m_thread;
    /// Lives on the thread, as does what follows.
    std::unique_ptr<QObject> m_worker;
    std::unique_ptr<SoundPlayer> m_player;
    bool m_soundLibraryTried = false;
};

} // namespace velmorath
