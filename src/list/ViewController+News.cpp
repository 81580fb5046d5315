#include "Bundle.h"
#include "DispatchQueue.h"
#include "UIApplication.h"
#include "ViewController.h"
#include <algorithm>
#include <map>
#include <utility>

namespace velmorath {

namespace {

/// Seconds until it is looked again whether the list is at rest.
constexpr double untilNextLook = 0.5;

/// A file that was written again, by us after a save that had failed or by a synchroniser, is no news.
bool isSame(const Notes& notes, const std::vector<MergedNote>& merged)
{
    return std::equal(
        notes.begin(), notes.end(), merged.begin(), merged.end(), [](const auto& ours, const auto& theirs) {
            return ours->text == theirs.note.text && ours->data == theirs.note.data
                && ours->completed == theirs.note.completed;
        });
}

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
        if (merged && !isSame(arrayNote, *merged))
            showNews(*merged);
        isReadable = static_cast<bool>(merged);
    }
    const auto copies = m_file.takeCopies(arrayNote);
    if (!copies.missing.empty())
        addOnTop(copies.missing);
    m_file.setCopiesAside();
    if (!isReadable || !copies.areReadable)
        tell("The list of another device cannot be read.");
}

void ViewController::showNews(const std::vector<MergedNote>& merged)
{
    const std::shared_ptr<UITableView> list = table();
    UIFocusSystem& focusSystem = UIApplication::shared().focusSystem();
    // The notes that are in sight, where each is shown, and the one that the keys are on.
    std::vector<std::pair<std::shared_ptr<ToDoItem2>, CGFloat>> shown;
    std::shared_ptr<ToDoItem2> focused;
    for (const auto& row : laidOutRows()) {
        shown.emplace_back(row->toDoItem(), row->frame().origin.y - list->contentOffset().y);
        if (focusSystem.focusedView() == row)
            focused = row->toDoItem();
    }

    Notes notes;
    std::map<std::shared_ptr<ToDoItem2>, std::int64_t> places;
    for (const auto& [place, note] : merged) {
        // One that stood in the list twice is two notes from now on.
        const bool isOurs = place && !places.contains(arrayNote[*place]);
        notes.push_back(isOurs ? arrayNote[*place] : std::make_shared<ToDoItem2>());
        *notes.back() = note;
        places[notes.back()] = static_cast<std::int64_t>(notes.size()) - 1;
    }
    arrayNote = std::move(notes);
    if (appIconBadge == "true")
        showBadge();
    list->reloadData();
    list->layoutIfNeeded();

    const auto stays =
        std::find_if(shown.begin(), shown.end(), [&](const auto& row) { return places.contains(row.first); });
    if (stays != shown.end()) {
        const CGFloat height = list->rowHeight() * static_cast<CGFloat>(arrayNote.size());
        const CGFloat lowest = std::max(height - list->bounds().size.height, 0.0);
        const CGFloat top = list->rowHeight() * static_cast<CGFloat>(places[stays->first]);
        list->setContentOffset({0, std::clamp(top - stays->second, 0.0, lowest)});
    }
    for (const auto& row : laidOutRows()) {
        if (focused && row->toDoItem() == focused)
            focusSystem.focus(row);
    }
    UIApplication::shared().announce(
        Bundle::main().localizedString("The list was changed on another device."));
}

} // namespace velmorath
