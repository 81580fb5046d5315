#pragma once

#include "Fingers.h"
#include "Host.h"
#include "WebClock.h"
#include "WebConsole.h"
#include "WebDocuments.h"
#include "WebEffects.h"
#include "WebFiles.h"
#include "WebLocale.h"
#include "WebScreen.h"
#include "WebTextInput.h"

namespace velmorath {

/// A page in a browser. What it supplies is in Page.h, and what the page calls in main.cpp.
class WebHost final : public Host {
public:
    WebScreen& screen() override { return m_screen; }
    WebTextInput& textInput() override { return m_textInput; }
    WebClock& clock() override { return m_clock; }
    WebFiles& files() override { return m_files; }
    WebLocale& locale() override { return m_locale; }
    WebEffects& effects() override { return m_effects; }
    WebConsole& console() override { return m_console; }
    WebDocuments& documents() override { return m_documents; }

    /// Returns at once: the loop is the browser's.
    int run(HostClient&) override;

    /// Only after run().
    HostClient& client() { return *m_client; }
    /// For what the page reports of this moment.
    Fingers& fingers(double time)
    {
        m_touchTime = time;
        return m_fingers;
    }

private:
    HostClient* m_client = nullptr;
    double m_touchTime = 0;
    Fingers m_fingers{
        [this](const std::vector<HostTouch>& touches) { m_client->touchesChanged(touches, m_touchTime); }};
    WebScreen m_screen;
    WebTextInput m_textInput;
    WebClock m_clock;
    WebFiles m_files;
    WebLocale m_locale;
    WebEffects m_effects;
    WebConsole m_console;
    WebDocuments m_documents;
};

} // namespace velmorath
