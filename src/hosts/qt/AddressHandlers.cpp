#include "AddressHandlers.h"
#include <QProcess>
#include <QTimer>

namespace velmorath {

AddressHandlers::AddressHandlers(const QString& scheme)
{
    // Not while the program starts: the tool takes its share of the machine.
    constexpr int pause = 1000;
    QTimer::singleShot(pause, &m_questions, [this, scheme] { ask(scheme); });
}

AddressHandlers::~AddressHandlers()
{
    for (QProcess* question : m_questions.findChildren<QProcess*>()) {
        question->kill();
        question->waitForFinished();
    }
}

std::optional<bool> AddressHandlers::has(const QString& scheme)
{
    ask(scheme);
    return m_answers[scheme];
}

void AddressHandlers::ask(const QString& scheme)
{
    if (m_questions.findChild<QProcess*>(scheme))
        return;
    auto* question = new QProcess(&m_questions);
    question->setObjectName(scheme);
    QObject::connect(question, &QProcess::finished, question, [this, question, scheme] {
        m_answers[scheme] = !question->readAllStandardOutput().trimmed().isEmpty();
        question->deleteLater();
    });
    QObject::connect(question, &QProcess::errorOccurred, question, [this, question, scheme] {
        m_answers[scheme] = false;
        question->deleteLater();
    });
    question->start(QStringLiteral("xdg-mime"),
        {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("x-scheme-handler/") + scheme});
}

} // namespace velmorath
