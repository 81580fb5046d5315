#include "Bundle.h"
#include "DispatchQueue.h"
#include "UIApplication.h"
#include "ViewController.h"
#include <algorithm>
#include <set>
#include <utility>

namespace velmorath {

namespace {

/// Seconds until it is looked again whether the list is at rest.
constexpr double untilNextLook = 0.5;

} // namespace

bool ViewController::isAtRest() const
{
    const auto& list = *table();
    return !tastieraAttiva && !presentedViewController() && !m_tutorialIsComing && !list.isDragging()
        && !list.isDecelerating() && UIApplication::shared().numberOfTouches() == 0;
}

void ViewController::takeNewsLater()
{
    if (std::exchange(m_newsIsWaiting, true))
        return;
    DispatchQueue::main().asyncAfter(untilNextLook, [this, weakSelf = weak_from_this()] {
        if (weakSelf.expired())
            return;
        m_newsIsWaiting = false;
        takeNews();
    });
}

void ViewController::takeNews()
{
    if (!isAtRest()) {
        takeNewsLater();
        return;
    }
    bool isReadable = true;
    if (m_file.hasNews()) {
        const auto merged = m_file.takeNews(arrayNote);
        // A file that was written again, by us after a save that had failed or by a synchroniser, is no news.
        if (merged && !isSame(arrayNote, *merged))
            showNews(*merged);
        isReadable = static_cast<bool>(merged);
        if (isReadable && m_file.isUnsaved())
            saveNotes();
    }
    const auto copies = m_file.takeCopies(arrayNote);
    if (!copies.missing.empty())
        addOnTop(copies.missing, sight());
    // Until their notes are saved, they are only there.
    if (!m_file.isUnsaved())
        m_file.setCopiesAside();
    if (!isReadable || !copies.areReadable)
        tell("The list of another device cannot be read.");
}

ViewController::Sight ViewController::sight() const
{
    Sight sight{{}, focusedNote()};
    for (const auto& row : laidOutRows())
        sight.rows.emplace_back(row->toDoItem(), row->frame().origin.y - table()->contentOffset().y);
    return sight;
}

void ViewController::showAgain(const Sight& before)
{
    const std::shared_ptr<UITableView> list = table();
    list->reloadData();
    list->layoutIfNeeded();
    for (const auto& [note, y] : before.rows) {
        const auto found = std::find(arrayNote.begin(), arrayNote.end(), note);
        if (found == arrayNote.end())
            continue;
        const CGFloat height = list->rowHeight() * static_cast<CGFloat>(arrayNote.size());
        const CGFloat lowest = std::max(height - list->bounds().size.height, 0.0);
        const CGFloat top = list->rowHeight() * static_cast<CGFloat>(found - arrayNote.begin());
        list->setContentOffset({0, std::clamp(top - y, 0.0, lowest)});
        break;
    }
    keepFocusOn(before.focused);
}

std::shared_ptr<ToDoItem2> ViewController::focusedNote()
{
    const auto view = UIApplication::shared().focusSystem().focusedView();
    const auto row = std::dynamic_pointer_cast<TableViewCell>(view);
    return row ? row->toDoItem() : nullptr;
}

void ViewController::keepFocusOn(const std::shared_ptr<ToDoItem2>& note) const
{
    if (!note)
        return;
    UIFocusSystem& focusSystem = UIApplication::shared().focusSystem();
    const auto rows = laidOutRows();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row->toDoItem() == note; });
    // The row that took its place is not what the user meant by the next key.
    focusSystem.focus(found == rows.end() ? focusSystem.focusedView() : *found);
}

void ViewController::showNews(const std::vector<MergedNote>& merged)
{
    const Sight before = sight();
    Notes notes;
    std::set<std::shared_ptr<ToDoItem2>> known;
    for (const auto& [place, note] : merged) {
        // One that stood in the list twice is two notes from now on.
        const bool isOurs = place && known.insert(arrayNote[*place]).second;
        notes.push_back(isOurs ? arrayNote[*place] : std::make_shared<ToDoItem2>());
        *notes.back() = note;
    }
    arrayNote = std::move(notes);
    if (appIconBadge == "true")
        showBadge();
    showAgain(before);
    UIApplication::shared().announce(
        Bundle::main().localizedString("The list was changed on another device."));
}

} // namespace velmorath
