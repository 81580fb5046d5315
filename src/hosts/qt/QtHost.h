#pragma once

#include "DesktopCalls.h"
#include "FolderWatch.h"
#include "Host.h"
#include "ProgramFolders.h"
#include "QtClock.h"
#include "QtConsole.h"
#include "QtDocuments.h"
#include "QtEffects.h"
#include "QtLocale.h"
#include "QtScreen.h"
#include "QtTextInput.h"
#include "RetryingFiles.h"
#include "ScreenWidget.h"
#include "UnsavedNotice.h"

namespace velmorath {

/// A phone or a desktop with Qt. Needs a QApplication that is there already and outlives it.
class QtHost final : public Host {
public:
    explicit QtHost(const ProgramFolders&);

    Screen& screen() override { return m_screen; }
    TextInput& textInput() override { return m_textInput; }
    Clock& clock() override { return m_clock; }
    Files& files() override { return m_files; }
    Locale& locale() override { return m_locale; }
    Effects& effects() override { return m_effects; }
    Console& console() override { return m_console; }
    Documents& documents() override { return m_documents; }

    int run(HostClient&) override;

    /// What run() does before the loop and after it.
    void attach(HostClient&);
    void detach();

    /// Raises the window, and opens the files in it.
    void answer(const DesktopCall&);

    ScreenWidget& widget() { return m_widget; }

private:
    void updateState();

    HostClient* m_client = nullptr;
    HostState m_state = HostState::active;
    QtClock m_clock;
    ScreenWidget m_widget;
    DesktopMotion m_motion;
    DesktopCalls m_calls;
    QtScreen m_screen;
    QtTextInput m_textInput;
    UnsavedNotice m_unsavedNotice;
    RetryingFiles m_files;
    FolderWatch m_documentsWatch;
    QtLocale m_locale;
    QtEffects m_effects;
    QtConsole m_console;
    QtDocuments m_documents{m_widget};
};

} // namespace velmorath
