#pragma once

#include "DrawingRecorder.h"
#include "HeadlessClock.h"
#include "HeadlessConsole.h"
#include "HeadlessDocuments.h"
#include "HeadlessEffects.h"
#include "HeadlessFiles.h"
#include "HeadlessLocale.h"
#include "HeadlessScreen.h"
#include "HeadlessTextInput.h"
#include "Host.h"

namespace velmorath {

/// A machine without a screen, for tests: time stands still until it is moved by hand, fingers move by
/// script, what the program does to the outside is kept to be looked at. It is also the smallest complete
/// host, to read before writing another one. Installs itself.
class HeadlessHost : public Host {
public:
    /// Files live in a scratch folder of this host's own, which goes with it.
    explicit HeadlessHost(std::string resourceDirectory);
    ~HeadlessHost() override;

    HeadlessScreen& screen() override { return m_screen; }
    HeadlessTextInput& textInput() override { return m_textInput; }
    HeadlessClock& clock() override { return m_clock; }
    HeadlessFiles& files() override { return m_files; }
    HeadlessLocale& locale() override { return m_locale; }
    HeadlessEffects& effects() override { return m_effects; }
    HeadlessConsole& console() override { return m_console; }
    HeadlessDocuments& documents() override { return m_documents; }

    /// Returns at once: the test is the loop.
    int run(HostClient&) override;
    /// The program ends; another one can run after it.
    void quit();

    /// Lets time pass: every frame asked for and every wake-up happens at its moment.
    void advance(double seconds);
    /// How many frames the program asked for since it started to run.
    int framesPrepared() const { return m_framesPrepared; }
    /// What had to be drawn again since this was last asked; the null rectangle when nothing.
    CGRect takeDamage() { return std::exchange(m_damage, CGRect::null()); }

    void resize(CGSize);
    void wheel(CGPoint location, CGFloat dy) { m_client->scrolled(location, {0, dy}); }

    /// What fingers do at the current moment, all in one event.
    void touch(const std::vector<HostTouch>& touches) { m_client->touchesChanged(touches, m_clock.now()); }

    /// A key outside a text. False when the program had no use for it.
    bool press(HostKey key, bool shift = false, bool alt = false)
    {
        return m_client->keyPressed({key, shift, alt});
    }

    HostClient& client() { return *m_client; }
    /// All that is on the screen now.
    DrawingRecorder draw();

private:
    void prepareFrame();

    HeadlessScreen m_screen;
    HeadlessTextInput m_textInput;
    HeadlessClock m_clock;
    HeadlessFiles m_files;
    HeadlessLocale m_locale;
    HeadlessEffects m_effects;
    HeadlessConsole m_console;
    HeadlessDocuments m_documents;
    HostClient* m_client = nullptr;
    int m_framesPrepared = 0;
    CGRect m_damage = CGRect::null();
};

} // namespace velmorath
