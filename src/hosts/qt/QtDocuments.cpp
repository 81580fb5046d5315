#include "QtDocuments.h"
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>
#include <filesystem>

namespace velmorath {

namespace {

/// Longer files are no lists of notes.
constexpr qint64 longestFile = 64 << 20;

Error errorOf(const QFileDevice& file)
{
    return {file.errorString().toStdString()};
}

std::optional<Error> write(const QString& path, const std::string& bytes)
{
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly)
        && file.write(bytes.data(), static_cast<qint64>(bytes.size())) == static_cast<qint64>(bytes.size())
        && file.commit();
    return isWritten ? std::nullopt : std::optional(errorOf(file));
}

void show(QFileDialog* dialog, const FilePortal::Chosen& chosen)
{
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog, chosen);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->open();
}

} // namespace

std::string QtDocuments::path(const std::string& name)
{
    const QUrl address(QString::fromStdString(name));
    if (name.starts_with("file:") && address.isLocalFile())
        return address.toLocalFile().toStdString();
    std::error_code error;
    return std::filesystem::absolute(name, error).string();
}

Result<std::string> QtDocuments::read(const QString& path)
{
    // A pipe would make us wait for its other end.
    if (!QFileInfo(path).isFile())
        return Error{"it is no file"};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return errorOf(file);
    const QByteArray bytes = file.read(longestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return errorOf(file);
    if (bytes.size() > longestFile)
        return Error{"it is too long"};
    return bytes.toStdString();
}

void QtDocuments::share(const std::string& utf8, std::function<void(Shared)> answer)
{
    QGuiApplication::clipboard()->setText(QString::fromStdString(utf8));
    answer(Shared::copied);
}

void QtDocuments::save(
    const std::string& name, const std::string& bytes, std::function<void(std::optional<Error>)> answer)
{
    const QString proposal = QString::fromStdString(name);
    const auto chosen = [bytes, answer = std::move(answer)](
                            const QString& path) { answer(write(path, bytes)); };
    m_portal.chooseToSave(proposal, chosen, [this, proposal, chosen] {
        auto* const dialog = new QFileDialog(&m_window);
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->selectFile(proposal);
        show(dialog, chosen);
    });
}

void QtDocuments::open(std::function<void(Result<std::optional<std::string>>)> answer)
{
    const auto chosen = [answer = std::move(answer)](const QString& path) {
        Result<std::string> file = read(path);
        if (file)
            answer(std::optional(std::move(*file)));
        else
            answer(file.error());
    };
    m_portal.chooseToOpen(chosen, [this, chosen] {
        auto* const dialog = new QFileDialog(&m_window);
        dialog->setFileMode(QFileDialog::ExistingFile);
        show(dialog, chosen);
    });
}

} // namespace velmorath
