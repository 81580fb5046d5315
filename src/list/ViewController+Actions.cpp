#include "Bundle.h"
#include "FatalError.h"
#include "Feedback.h"
#include "Print.h"
#include "UIApplication.h"
#include "ViewController.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr double fadeDuration = 0.3;
constexpr double closeDuration = 0.3;
constexpr double closeStagger = 0.03;
constexpr CGFloat fadedAlpha = 0.3;

} // namespace

long long ViewController::changeBadge(long long by) const
{
    UIApplication& application = UIApplication::shared();
    application.setApplicationIconBadgeNumber(application.applicationIconBadgeNumber() + by);
    return by;
}

std::int64_t ViewController::indexOf(const ToDoItem2& note) const
{
    const auto found = std::find_if(
        arrayNote.begin(), arrayNote.end(), [&](const auto& candidate) { return candidate.get() == &note; });
    return found == arrayNote.end() ? 0 : found - arrayNote.begin();
}

void ViewController::announce(std::string_view what, const ToDoItem2& note)
{
    const std::string word = Bundle::main().localizedString(what);
    const std::string text = note.text.value_or("");
    UIApplication::shared().announce(text.empty() ? word : word + ", " + text);
}

void ViewController::cellDidBeginEditing(TableViewCell& editingCell)
{
    print("👍👍👍👍👍👍👍👍👍👍👍👍 ùùùùùùùùùùùùùùùùùùùùùùùùùùùùù cellDidBeginEditing(editingCell:");
    print("play SUONO");
    tastieraAttiva = true;
    giveFeedback("vanti", soundEffect, vibration);
    // What a new note was, before it was inserted, is known already.
    if (const auto note = editingCell.toDoItem(); m_typed.note != note)
        m_typed = {note, stateOf(note)};

    const CGFloat contentOffset = table()->contentOffset().y;
    const CGFloat rowTop = editingCell.frame().origin.y;
    print("tableView.contentOffset.y : " + description(contentOffset));
    print("editingCell.frame.origin.y : " + description(rowTop));
    m_typingOffset = contentOffset >= 0 ? contentOffset - rowTop : 0;
    for (const auto& row : laidOutRows())
        UIView::animate(fadeDuration, 0, [&] { giveWay(*row); });
}

void ViewController::giveWay(TableViewCell& row) const
{
    row.setTransform(CGAffineTransform::translation(0, m_typingOffset));
    if (!row.label->isEditing() && !row.labelData->isEditing())
        row.setAlpha(fadedAlpha);
}

void ViewController::cellDidEndEditing(TableViewCell& editingCell)
{
    print("cellDidEndEditing:");
    // A row that is typed into no longer may show another note from the next layout on.
    const std::shared_ptr<ToDoItem2> note = editingCell.toDoItem();
    const auto rows = laidOutRows();
    tastieraAttiva = false;
    for (const auto& row : rows) {
        UIView::animate(fadeDuration, 0, [&] {
            row->setTransform(CGAffineTransform::identity());
            row->setAlpha(1.0);
        });
    }

    if (!note->text || note->text->empty()) {
        toDoItemDeleted(note);
        return;
    }
    print("il tasto cè quindi devo salvare il nuovo array con la nuova nota");
    saveNotes();
    print("-------------------------appIconBadge :   " + appIconBadge);
    const long long badge = appIconBadge == "true" ? changeBadge(1) : 0;
    const NoteState before = stateBeforeTyping(note);
    rememberChange(before.place ? "Edit" : "Add note", note, before, badge);
}

void ViewController::toDoItemCambiaColoreALetto(const std::shared_ptr<ToDoItem2>& note)
{
    print("toDoItemCambiaColoreALetto");
    setCompleted(note, true);
}

void ViewController::toDoItemRiaperto(const std::shared_ptr<ToDoItem2>& note)
{
    setCompleted(note, false);
}

void ViewController::setCompleted(const std::shared_ptr<ToDoItem2>& note, bool completed)
{
    giveFeedback("completa", soundEffect, vibration);
    const NoteState before = stateOf(note);
    const std::int64_t index = indexOf(*note);
    print("toDoItemDaModificare completed : " + std::string(note->completed ? "true" : "false") + "   "
        + note->text.value_or(""));
    long long badge = 0;
    if (appIconBadge == "true") {
        print("true appiconbadge");
        if (!note->completed) {
            print("!toDoItem.completed.boolValue");
            badge = changeBadge(completed ? -1 : 1);
        }
    }
    note->completed = completed;
    arrayNote[checkedIndex(index)] = note;
    saveNotes();
    announce(completed ? "Completed" : "Reopened", *note);
    rememberChange(completed ? "Complete" : "Reopen", note, before, badge);
}

void ViewController::toDoItemDeleted(const std::shared_ptr<ToDoItem2>& note)
{
    print("toDoItemDeleted:");
    if (tastieraAttiva) {
        print(
            "❤️❤️ se la tastiera è attiva non faccio nulla perche sto ancora creando la nota e non la posso cncellare");
        return;
    }
    giveFeedback("cancella", soundEffect, vibration);
    const NoteState before = stateBeforeTyping(note);
    const std::int64_t index = indexOf(*note);
    print("index = " + std::to_string(index));
    const long long badge = appIconBadge == "true" && !note->completed ? changeBadge(-1) : 0;
    const auto rows = laidOutRows();
    arrayNote.erase(arrayNote.begin() + static_cast<std::ptrdiff_t>(checkedIndex(index)));
    print("arrayNote.removeAtIndex(index)");
    print("SalvoEPrelevoDatiDaFile().ArchiveResults");
    saveNotes();
    announce("Deleted", *note);
    rememberChange("Delete", note, before, badge);

    closeGapOf(*note, rows);
    const std::shared_ptr<UITableView> list = table();
    list->beginUpdates();
    list->deleteRows({{0, index}}, UITableViewRowAnimation::fade);
    list->endUpdates();
}

void ViewController::toDoItemAddedBelow(const std::shared_ptr<ToDoItem2>& note)
{
    const std::int64_t index = indexOf(*note) + 1;
    // Only a row in sight can be typed into. The list may scroll past its end: it is about to grow.
    const CGFloat bottom = static_cast<CGFloat>(index + 1) * table()->rowHeight();
    const CGFloat lowest = bottom - table()->bounds().size.height;
    if (table()->contentOffset().y < lowest)
        table()->setContentOffset({0, lowest});
    toDoItemAddedAtIndex(index);
}

void ViewController::closeGapOf(
    const ToDoItem2& note, const std::vector<std::shared_ptr<TableViewCell>>& rows)
{
    const auto reload = [this, weakSelf = weak_from_this()] {
        if (weakSelf.lock())
            table()->reloadData();
    };
    const auto shown = std::find_if(
        rows.begin(), rows.end(), [&](const auto& row) { return row->toDoItem().get() == &note; });
    if (shown != rows.end())
        (*shown)->setHidden(true);
    if (shown == rows.end() || *shown == rows.back()) {
        // No row moves up: the others get their new colours when this one has faded.
        UIView::animate(
            closeDuration, 0, [] {}, reload);
        return;
    }
    double delay = 0.0;
    for (auto row = shown + 1; row != rows.end(); ++row) {
        UIView::animate(
            closeDuration, delay,
            [&] { (*row)->setFrame((*row)->frame().offsetBy(0, -(*row)->frame().size.height)); },
            *row == rows.back() ? std::function<void()>(reload) : nullptr);
        delay += closeStagger;
    }
}

bool ViewController::tableViewCanEditRowAtIndexPath(UITableView&, IndexPath)
{
    return true;
}

bool ViewController::tableViewShouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath)
{
    return false;
}

UITableViewCellEditingStyle ViewController::tableViewEditingStyleForRowAtIndexPath(UITableView&, IndexPath)
{
    return UITableViewCellEditingStyle::none;
}

void ViewController::tableViewMoveRowAtIndexPathToIndexPath(UITableView& list, IndexPath from, IndexPath to)
{
    print("moveRowAtIndexPath");
    if (from.row != to.row) {
        print("modifico gli array perche l utente ha spostato un elemento :");
        const std::shared_ptr<ToDoItem2> note = arrayNote[checkedIndex(from.row)];
        const NoteState before = stateOf(note);
        arrayNote.erase(arrayNote.begin() + from.row);
        const auto count = static_cast<std::int64_t>(arrayNote.size());
        if (to.row >= count)
            arrayNote.push_back(note);
        else
            arrayNote.insert(arrayNote.begin() + static_cast<std::ptrdiff_t>(checkedIndex(to.row)), note);
        rememberChange("Move", note, before);
    }
    saveNotes();
    list.reloadData();
}

} // namespace velmorath
