#include "FilePortal.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace velmorath {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

QDBusConnection bus()
{
    return QDBusConnection::sessionBus();
}

} // namespace

void FilePortal::chooseToOpen(Chosen chosen, Absent absent)
{
    ask(QStringLiteral("OpenFile"), {}, std::move(chosen), std::move(absent));
}

void FilePortal::chooseToSave(const QString& name, Chosen chosen, Absent absent)
{
    ask(QStringLiteral("SaveFile"), {{QStringLiteral("current_name"), name}}, std::move(chosen),
        std::move(absent));
}

void FilePortal::ask(const QString& method, QVariantMap options, Chosen chosen, Absent absent)
{
    if (!m_isOnBus) {
        absent();
        return;
    }
    const QString response = QStringLiteral("Response");
    const QString requests = QStringLiteral("org.freedesktop.portal.Request");
    if (!m_request.isEmpty())
        bus().disconnect(service, m_request, requests, response, this, SLOT(answered(uint, QVariantMap)));
    // The answer may come before the call returns: where it comes from is known already.
    const QString token = QStringLiteral("velmorath%1").arg(++m_lastRequest);
    const QString sender = bus().baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    m_request = path + QStringLiteral("/request/") + sender + QLatin1Char('/') + token;
    m_chosen = std::move(chosen);
    bus().connect(service, m_request, requests, response, this, SLOT(answered(uint, QVariantMap)));

    options[QStringLiteral("handle_token")] = token;
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.portal.FileChooser"), method);
    const bool isOnX = QGuiApplication::platformName() == QLatin1String("xcb");
    const QString window = isOnX ? QStringLiteral("x11:%1").arg(m_window.winId(), 0, 16) : QString();
    const QString usualTitle;
    question << window << usualTitle << options;
    auto* const answer = new QDBusPendingCallWatcher(bus().asyncCall(question), this);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, absent = std::move(absent)] {
        if (answer->isError())
            absent();
        answer->deleteLater();
    });
}

void FilePortal::answered(uint response, const QVariantMap& results)
{
    const Chosen chosen = std::exchange(m_chosen, {});
    const QStringList files = results[QStringLiteral("uris")].toStringList();
    if (response == 0 && chosen && !files.isEmpty())
        chosen(QUrl(files.first()).toLocalFile());
}

} // namespace velmorath
