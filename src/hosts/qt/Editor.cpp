#include "Editor.h"
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

namespace velmorath {

void Editor::finish()
{
    QInputMethod& inputMethod = *QGuiApplication::inputMethod();
    inputMethod.commit();
    textMayHaveChanged();
    m_client = nullptr;
    // One that did not hand over its text has been reported with it, and must not hand it to the next.
    inputMethod.reset();
}

void Editor::textMayHaveChanged()
{
    const QString now = text();
    if (!m_client || now == m_knownText)
        return;
    m_knownText = now;
    m_client->textInputDidChange(now.toStdString());
}

void Editor::inputMethodSaid(const QInputMethodEvent& event, const std::function<void()>& tell)
{
    // Set first: committing part of a text changes it while the rest is unfinished still.
    m_unfinished = event.preeditString();
    tell();
    textMayHaveChanged();
}

void Editor::didReturn()
{
    if (m_client)
        m_client->textInputDidReturn();
}

} // namespace velmorath
