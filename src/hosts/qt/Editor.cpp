#include "Editor.h"
#include <QGuiApplication>
#include <QInputMethod>

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

void Editor::didReturn()
{
    if (m_client)
        m_client->textInputDidReturn();
}

} // namespace velmorath
