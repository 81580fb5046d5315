#include "Bundle.h"
#include "UIApplication.h"
#include "ViewController.h"
#include <algorithm>
#include <utility>

namespace velmorath {

namespace {

constexpr double restoreDuration = 0.3;

int openCount(const NoteState& state)
{
    return state.place && !state.completed ? 1 : 0;
}

} // namespace

NoteState ViewController::stateOf(const std::shared_ptr<ToDoItem2>& note) const
{
    NoteState state{std::nullopt, note->text, note->data, note->completed};
    const auto found = std::find(arrayNote.begin(), arrayNote.end(), note);
    if (found == arrayNote.end())
        return state;
    // A new note that is still being typed may yet come to nothing: the others stand as if it were not there.
    const bool isNew = m_typed.note && !m_typed.before.place;
    if (!isNew || note != m_typed.note) {
        state.place = found - arrayNote.begin();
        if (isNew && std::find(arrayNote.begin(), found, m_typed.note) != found)
            --*state.place;
    }
    return state;
}

NoteState ViewController::stateBeforeTyping(const std::shared_ptr<ToDoItem2>& note)
{
    const auto [typed, before] = std::exchange(m_typed, {});
    NoteState state = typed == note ? before : stateOf(note);
    // Other notes may have come and gone around it meanwhile, which is not what typing did.
    if (state.place)
        state.place = stateOf(note).place;
    return state;
}

void ViewController::rememberChange(
    std::string_view action, const std::shared_ptr<ToDoItem2>& note, const NoteState& before, long long badge)
{
    const NoteState after = stateOf(note);
    if (after == before || (!before.place && !after.place))
        return;
    const std::string& text = (after.place ? after : before).text.value_or("");
    std::string name = Bundle::main().localizedString(action);
    if (!text.empty())
        name += " " + text;
    registerRestore(note, before, {name, after, badge, m_badgeCounts});
    showUndo();
}

void ViewController::registerRestore(
    const std::shared_ptr<ToDoItem2>& note, const NoteState& state, const UndoStep& step)
{
    m_undoManager.registerUndo(step.name, [this, note, state, step] { restore(note, state, step); });
}

void ViewController::restore(
    const std::shared_ptr<ToDoItem2>& note, const NoteState& wanted, const UndoStep& step)
{
    const NoteState before = stateOf(note);
    // What the step has not changed, another machine may have changed since.
    NoteState state = before;
    if (!before.place || wanted.place != step.after.place)
        state.place = wanted.place;
    if (wanted.text != step.after.text)
        state.text = wanted.text;
    if (wanted.data != step.after.data)
        state.data = wanted.data;
    if (wanted.completed != step.after.completed)
        state.completed = wanted.completed;

    if (before.place)
        arrayNote.erase(arrayNote.begin() + *before.place);
    if (state.place)
        arrayNote.insert(
            arrayNote.begin() + std::min(*state.place, static_cast<std::int64_t>(arrayNote.size())), note);
    note->text = state.text;
    note->data = state.data;
    note->completed = state.completed;
    saveNotes();

    // What the action did to the badge is undone with it, unless the badge has been counted since.
    const long long badge =
        step.badgeCounts == m_badgeCounts ? -step.badge : openCount(state) - openCount(before);
    if (appIconBadge == "true")
        changeBadge(badge);
    registerRestore(note, before, {step.name, state, badge, m_badgeCounts});
    showRestored(before.place, state.place);
}

void ViewController::showRestored(std::optional<std::int64_t> from, std::optional<std::int64_t> to)
{
    const std::shared_ptr<UITableView> list = table();
    list->reloadData();
    if (to) {
        list->layoutIfNeeded();
        list->scrollToRow(*to);
    }
    // The rows below come from where they were; the note's own row fades in.
    const CGFloat way = (from ? list->rowHeight() : 0) - (to ? list->rowHeight() : 0);
    for (const auto& row : laidOutRows()) {
        const std::int64_t place = *list->placeOf(*row);
        // A cancelled pinch may have left it moved away, and so its frame.
        const CGPoint center = row->center();
        if (place == to) {
            row->setAlpha(0);
            UIApplication::shared().focusSystem().focus(row);
        } else if (place >= to.value_or(from.value_or(0))) {
            row->setCenter({center.x, center.y + way});
        }
        UIView::animate(restoreDuration, 0, [&] {
            row->setCenter(center);
            row->setAlpha(1);
        });
    }
}

bool ViewController::takeBack()
{
    return m_undoManager.canUndo() && takeStep("Undone", m_undoManager.undoActionName(), &UndoManager::undo);
}

bool ViewController::doAgain()
{
    return m_undoManager.canRedo() && takeStep("Redone", m_undoManager.redoActionName(), &UndoManager::redo);
}

bool ViewController::takeStep(std::string_view what, const std::string& name, void (UndoManager::*step)())
{
    if (!canTakeBack())
        return false;
    UIApplication::shared().announce(Bundle::main().localizedString(what) + ", " + name);
    (m_undoManager.*step)();
    showUndo();
    return true;
}

bool ViewController::canTakeBack() const
{
    // One finger may be on the button.
    return !tastieraAttiva && UIApplication::shared().numberOfTouches() <= 1;
}

void ViewController::showUndo() const
{
    if (const auto button = annulla.lock())
        button->show(m_undoManager);
}

} // namespace velmorath
