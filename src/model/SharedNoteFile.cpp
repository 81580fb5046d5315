#include "SharedNoteFile.h"
#include "Host.h"
#include "SalvoEPrelevoDatiDaFile.h"
#include <algorithm>
#include <utility>

namespace velmorath {

std::string SharedNoteFile::path()
{
    const auto folder = Host::current().files().documentDirectory();
    return folder.value_or("") + "/" + std::string(SalvoEPrelevoDatiDaFile::fileName);
}

Result<Notes> SharedNoteFile::read()
{
    const Result<std::string> bytes = Host::current().files().read(path());
    if (!bytes)
        return bytes.error();
    Result<Notes> notes = archivedNotes(*bytes);
    if (notes)
        Host::current().files().markRead(path());
    return notes;
}

void SharedNoteFile::setBase(const Notes& notes)
{
    m_base.resize(notes.size());
    auto base = m_base.begin();
    for (const auto& note : notes)
        *base++ = *note;
}

Notes SharedNoteFile::load()
{
    m_version = Host::current().files().version(path());
    Notes notes = SalvoEPrelevoDatiDaFile().UnarchiveResults();
    if (m_version)
        setBase(notes);
    return notes;
}

bool SharedNoteFile::hasNews() const
{
    const auto version = Host::current().files().version(path());
    return m_wasPutAsideUnread || (version && version != m_version && version != m_unreadableVersion);
}

void SharedNoteFile::save(const Notes& notes)
{
    Files& files = Host::current().files();
    const auto found = files.version(path());
    std::optional<Notes> withNews;
    if (found && found != m_version) {
        if (const auto theirs = read()) {
            withNews.emplace();
            for (const auto& [place, note] : mergeNotes(m_base, notes, *theirs))
                withNews->push_back(std::make_shared<ToDoItem2>(note));
        } else {
            files.markUnreadable(path());
            m_wasPutAsideUnread = m_wasPutAsideUnread || found != m_unreadableVersion;
            m_unreadableVersion = found;
        }
    }
    SalvoEPrelevoDatiDaFile().ArchiveResults(withNews ? *withNews : notes);
    const auto written = files.version(path());
    m_isUnsaved = !written || written == found;
    if (m_isUnsaved)
        return;
    // What is news for the list is so in comparison with what the list was when it was saved.
    setBase(notes);
    m_version = withNews ? std::nullopt : written;
}

Result<std::vector<MergedNote>> SharedNoteFile::takeNews(const Notes& notes)
{
    if (std::exchange(m_wasPutAsideUnread, false))
        return Error{"What was put aside cannot be read"};
    const auto found = Host::current().files().version(path());
    const auto theirs = read();
    if (!theirs) {
        m_unreadableVersion = found;
        return theirs.error();
    }
    auto merged = mergeNotes(m_base, notes, *theirs);
    setBase(*theirs);
    m_version = found;
    m_isUnsaved = m_isUnsaved && !isSame(*theirs, merged);
    return merged;
}

SharedNoteFile::Copies SharedNoteFile::takeCopies(const Notes& notes)
{
    Copies taken;
    Notes all = notes;
    for (const std::string& path : Host::current().files().copiesBeside(path())) {
        const auto isThisOne = [&](const Copy& copy) { return copy.path == path; };
        if (std::any_of(m_copies.begin(), m_copies.end(), isThisOne))
            continue;
        const Result<std::string> bytes = Host::current().files().read(path);
        const Result<Notes> copy = bytes ? notesOfArchive(*bytes) : Result<Notes>(bytes.error());
        m_copies.push_back({path, copy ? "merged" : "unreadable"});
        if (!copy) {
            taken.areReadable = false;
            continue;
        }
        const Notes missing = notesMissing(all, *copy);
        all.insert(all.end(), missing.begin(), missing.end());
        taken.missing.insert(taken.missing.end(), missing.begin(), missing.end());
    }
    return taken;
}

void SharedNoteFile::setCopiesAside()
{
    // Those that cannot be moved are not taken again.
    std::erase_if(
        m_copies, [](const Copy& copy) { return !Host::current().files().setAside(copy.path, copy.what); });
}

} // namespace velmorath
