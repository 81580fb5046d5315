#include "SessionWatch.h"
#include "FilesOnDisk.h"
#include "KeyedArchiver.h"
#include "ManyNotes.h"
#include "Print.h"
#include "UIApplication.h"
#include "VistaNoteViewController.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace velmorath {

namespace {

constexpr const char* themes[] = {"Red", "Green", "Violet", "Blue", "Yellow", "Mixed", "Black"};

bool isEmpty(const ToDoItem2& note)
{
    return !note.text || note.text->empty();
}

/// The row that this view is, or is in.
std::shared_ptr<TableViewCell> rowAround(UIView* view)
{
    for (; view; view = view->superview()) {
        if (dynamic_cast<TableViewCell*>(view))
            return std::static_pointer_cast<TableViewCell>(view->shared_from_this());
    }
    return nullptr;
}

std::shared_ptr<ToDoItem2> noteAround(UIView* view)
{
    const auto row = rowAround(view);
    return row ? row->toDoItem() : nullptr;
}

bool areEqual(const Notes& notes, const Notes& others)
{
    return std::equal(notes.begin(), notes.end(), others.begin(), others.end(),
        [](const auto& a, const auto& b) { return *a == *b; });
}

void collect(const AccessibilityElement& around, std::vector<AccessibilityElement>& found)
{
    found.push_back(around);
    for (const AccessibilityElement& child : around.children)
        collect(child, found);
}

} // namespace

SessionWatch::SessionWatch()
    : m_tells(std::getenv("VELMORATH_TELL"))
{
    host.files().setShared(true);
}

void SessionWatch::require(bool isTrue, const std::string& what) const
{
    if (isTrue)
        return;
    std::fprintf(stderr, "After \"%s\": %s\n", m_step.c_str(), what.c_str());
    std::abort();
}

void SessionWatch::putNotes(std::size_t count, bool badge, std::size_t theme)
{
    SettingsDictionary settings = defaultSettings(themes[theme]);
    settings.insert_or_assign("appIconBadge", badge ? "true" : "false");
    Notes notes;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string text = "note " + std::to_string(i);
        notes.push_back(makeNote(i % 5 == 4 ? text + " with a text longer than any row" : text,
            i % 4 != 3 ? std::optional<std::string>("Nov 20, 2026") : std::nullopt, i % 3 == 2));
    }
    put(notes, settings);
}

void SessionWatch::watchFromNowOn()
{
    m_first = m_known = listNow();
    m_fingers.clear();
    m_underFingers.clear();
    m_rows.clear();
    m_datesEdited.clear();
    m_wasPinching = m_pinchWasTakenAway = false;
    m_tree = {};
    // The sample note of a first start reaches the file with the next change.
    m_isInFile = areEqual(savedNotes().value_or(Notes{}), list().arrayNote);
    checkBadge();
}

void SessionWatch::start()
{
    launch();
    watchFromNowOn();
}

std::vector<std::shared_ptr<TableViewCell>> SessionWatch::rows() const
{
    std::vector<std::shared_ptr<TableViewCell>> found;
    for (const auto& view : table().subviews()) {
        if (auto row = std::dynamic_pointer_cast<TableViewCell>(view))
            found.push_back(std::move(row));
    }
    return found;
}

void SessionWatch::act(const std::string& name, const std::function<void()>& action)
{
    m_step = name;
    if (m_tells)
        std::fprintf(stderr, "%s\n", name.c_str());
    auto* const edited = dynamic_cast<UIView*>(UIResponder::current());
    m_typed = noteAround(edited);
    if (m_typed && rowAround(edited)->labelData.get() == edited)
        m_datesEdited.insert(m_typed);
    // The screen's own list is ahead of the list from the saving of an emptied note until the screen is gone.
    if (const auto detail =
            std::dynamic_pointer_cast<VistaNoteViewController>(list().presentedViewController());
        detail && detail->arrayNotePortato.size() == list().arrayNote.size())
        m_inDetail =
            detail->arrayNotePortato.at(static_cast<std::size_t>(*detail->indirizzoNotaDaVisualizzare));
    action();
    compareNotes();
    watchGestures(m_step.starts_with("lift"));
    m_targets.clear();
}

void SessionWatch::noteWrites()
{
    for (const std::string& line : host.console().lines()) {
        if (line == "Success writing to file!")
            m_isInFile = true;
        else if (line == "Unable to write to file!")
            m_isInFile = false;
    }
    host.console().clear();
}

void SessionWatch::compareNotes()
{
    const std::vector<std::string>& lines = host.console().lines();
    auto added = std::count(lines.begin(), lines.end(), "toDoItemAddedAtIndex");
    noteWrites();
    // What is taken back or done again, a copy that is opened and another machine change any notes in any
    // way.
    const std::vector<std::string>& announced = host.effects().announced();
    const bool isStep = std::any_of(announced.begin() + static_cast<std::ptrdiff_t>(m_heard), announced.end(),
        [](const std::string& text) {
            return text.starts_with("Undone") || text.starts_with("Redone") || text == "Open a copy"
                || text == "The list was changed on another device.";
        });
    m_heard = announced.size();
    const NoteStates now = listNow();
    for (const auto& [note, state] : now) {
        const auto known = m_known.find(note);
        if (known == m_known.end()) {
            require(added-- > 0 || isStep, "a note is there that nothing added");
            continue;
        }
        const bool mayBeEdited = note == m_typed || note == m_inDetail || isStep;
        require(known->second.text == state.text || mayBeEdited, "the text of another note changed");
        require(known->second.completed == state.completed || m_targets.contains(note) || isStep,
            "another note was completed or reopened");
    }
    std::size_t removed = 0;
    for (const auto& [note, known] : m_known) {
        if (now.contains(note))
            continue;
        ++removed;
        const bool wasEmptied = isEmpty(*note) && note == m_typed;
        require(wasEmptied || m_targets.contains(note) || note == m_inDetail || isStep,
            "the note \"" + note->text.value_or("") + "\" is gone, and nothing deleted it");
    }
    require(removed <= 1 || isStep, "more than one note is gone");
    m_known = now;
}

void SessionWatch::watchGestures(bool isLift)
{
    const bool isPinching = list().pinchRecognizer->isActive();
    if (isPinching || m_wasPinching)
        m_pinchWasTakenAway = !isPinching && !isLift;
    m_wasPinching = isPinching;

    std::map<const TableViewCell*, Watched> now;
    for (const auto& row : rows()) {
        Watched known = m_rows[row.get()];
        const bool hasGesture = row->hasGestureGoingOn();
        const bool isHeld = hasGesture || row->label->isEditing() || row->labelData->isEditing();
        const bool isSwiped = row->gestureRecognizers().front()->isActive();
        if (isHeld && known.isHeld) {
            require(known.note == row->toDoItem(), "a row that is held shows another note");
            require(!isSwiped || !known.isSwiped || m_step.starts_with("move") || known.x == row->center().x,
                "a row that is swiped moved without its finger");
        }
        if (known.hasGesture && !hasGesture)
            known.isLeftAside = !isLift || known.wasTyping;
        known.wasTyping = hasGesture && (known.wasTyping || list().tastieraAttiva);
        now[row.get()] = {row->toDoItem(), row->center().x, isHeld, hasGesture, isSwiped, known.wasTyping,
            known.isLeftAside && !hasGesture};
    }
    m_rows = std::move(now);
}

void SessionWatch::touch(const std::vector<HostTouch>& touches)
{
    std::vector<HostTouch> known;
    std::string name;
    for (HostTouch touch : touches) {
        const auto finger = m_fingers.find(touch.identifier);
        const bool begins = touch.phase == HostTouch::Phase::began;
        if (begins != (finger == m_fingers.end()))
            continue;
        if (begins) {
            name = "finger";
            m_fingers[touch.identifier] = touch.location;
            UIWindow& window = *UIApplication::shared().keyWindow();
            m_underFingers[touch.identifier] = noteAround(window.hitTest(touch.location).get());
        } else if (touch.phase == HostTouch::Phase::moved) {
            name = "move";
            finger->second = touch.location;
        } else {
            name = touch.phase == HostTouch::Phase::ended ? "lift" : "cancel";
            touch.location = finger->second;
            m_fingers.erase(finger);
        }
        if (touch.phase == HostTouch::Phase::ended)
            m_targets.insert(m_underFingers[touch.identifier]);
        name += " " + std::to_string(touch.identifier) + " at " + description(touch.location.x) + " "
            + description(touch.location.y);
        known.push_back(touch);
    }
    if (!known.empty())
        act(name, [&] { host.touch(known); });
}

void SessionWatch::press(const HostKeyPress& key)
{
    m_targets.insert(noteAround(UIApplication::shared().focusSystem().focusedView().get()));
    act("key " + std::to_string(static_cast<int>(key.key)), [&] { host.client().keyPressed(key); });
}

void SessionWatch::useReader(bool readsFirst, std::size_t kind, std::size_t element, std::size_t action)
{
    if (readsFirst)
        act("read", [&] { m_tree = host.client().accessibilityTree(); });
    std::vector<AccessibilityElement> all;
    collect(m_tree, all);
    const AccessibilityElement& chosen = all[element % all.size()];
    for (const auto& [note, known] : m_known) {
        if (known.text.value_or("") == chosen.label || (isEmpty(*note) && chosen.label == "Empty note"))
            m_targets.insert(note);
    }
    HostClient& program = host.client();
    if (kind == 0)
        act("press " + chosen.label, [&] { program.pressElement(chosen.identifier); });
    else if (kind == 1)
        act("act on " + chosen.label, [&] { program.performElementAction(chosen.identifier, action); });
    else
        act("focus " + chosen.label, [&] { program.focusElement(chosen.identifier); });
}

void SessionWatch::advance(double seconds)
{
    act("advance " + description(seconds), [&] { host.advance(seconds); });
}

void SessionWatch::setDiskFails(bool fails)
{
    host.files().setFault([fails](HeadlessFiles::Operation operation, const std::string&) {
        const bool writes = operation != HeadlessFiles::Operation::read;
        return fails && writes ? std::optional(Error{"the disk is full"}) : std::nullopt;
    });
}

void SessionWatch::changeFromOutside(std::size_t kind, std::size_t place, bool isCopy)
{
    Notes notes = savedNotes().value_or(Notes{});
    std::erase_if(notes, [](const auto& note) { return isEmpty(*note); });
    if (kind == 0 || notes.empty()) {
        notes.insert(notes.begin() + static_cast<std::ptrdiff_t>(place % (notes.size() + 1)),
            std::make_shared<ToDoItem2>());
        for (const auto& note : notes)
            note->text = note->text.value_or("of another machine");
    } else {
        const auto note = notes.begin() + static_cast<std::ptrdiff_t>(place % notes.size());
        if (kind == 1)
            notes.erase(note);
        else if (kind == 2)
            (*note)->completed = !(*note)->completed;
        else if (kind == 3)
            (*note)->text->append(" there");
        else
            std::rotate(notes.begin(), note, note + 1);
    }
    const std::string archive = archivePath();
    replaceFromOutside(
        isCopy ? archive + ".sync-conflict.archive" : archive, KeyedArchiver::archivedData(notes));
    m_hasNews = m_hadNews = true;
    act("another machine, " + std::to_string(kind) + " at " + std::to_string(place),
        [&] { host.client().documentsChanged(); });
}

bool SessionWatch::wasEmptyAtStart(const std::shared_ptr<ToDoItem2>& note) const
{
    const auto known = m_first.find(note);
    return known != m_first.end() && known->second.text.value_or("").empty();
}

void SessionWatch::restart()
{
    act("quit", [&] {
        // The records outlive the program, with what was still being typed.
        Notes kept = list().arrayNote;
        host.quit();
        noteWrites();
        std::erase_if(kept, [this](const auto& note) { return isEmpty(*note) && !wasEmptyAtStart(note); });
        relaunch();
        require(!m_isInFile || m_hasNews || areEqual(list().arrayNote, kept),
            "a note was lost or changed between two starts");
        m_hasNews = m_hadNews = false;
        watchFromNowOn();
    });
}

void SessionWatch::comeToRest()
{
    while (!m_fingers.empty())
        touch({{m_fingers.begin()->first, HostTouch::Phase::ended, {}}});
    act("active", [&] { host.client().stateChanged(HostState::active); });
    act("return", [&] { host.textInput().pressReturn(); });
    if (list().presentedViewController())
        act("end typing", [&] { UIApplication::shared().keyWindow()->endEditing(); });
    advance(3);
    m_step += " (at rest)";
    const int frames = host.framesPrepared();
    host.advance(0.3);
    require(host.framesPrepared() == frames, "frames are asked for at rest");
    for (const auto& note : list().arrayNote)
        require(!isEmpty(*note) || wasEmptyAtStart(note), "an empty note is in the list");
    if (list().presentedViewController()) {
        require(m_hasNews || isListInFile(), "the file is not the list");
        return;
    }
    m_hasNews = false;
    require(isListInFile(), "the file is not the list");
    checkRows();
    act("open", [&] { list().Info(); });
    advance(1);
    press({HostKey::escape});
    advance(1);
    require(!list().presentedViewController(), "a screen does not close");
    checkBadge();
}

SessionWatch::NoteStates SessionWatch::listNow() const
{
    NoteStates notes;
    for (const auto& note : list().arrayNote)
        notes[note] = {std::ssize(notes), note->text, note->data, note->completed};
    return notes;
}

void SessionWatch::takeAllBack()
{
    comeToRest();
    if (list().presentedViewController())
        return;
    std::size_t steps = 0;
    const auto press = [&](HostKey key) {
        const std::size_t heard = host.effects().announced().size();
        act("take back", [&] { host.client().keyPressed({key}); });
        advance(0.1);
        return host.effects().announced().size() > heard;
    };
    while (press(HostKey::undo))
        ++steps;
    m_datesEdited.clear();
    comeToRest();
    m_step = "take all back";
    require(m_hadNews || steps >= UndoManager::levelsOfUndo || listNow() == m_first,
        "it is not the list of the start");
    for (std::size_t i = 0; i < steps; ++i)
        require(press(HostKey::redo), "a step cannot be done again");
    comeToRest();
}

bool SessionWatch::isListInFile()
{
    return !m_isInFile || areEqual(savedNotes().value_or(Notes{}), list().arrayNote);
}

void SessionWatch::checkBadge()
{
    if (list().appIconBadge != "true")
        return;
    const auto open = std::count_if(
        list().arrayNote.begin(), list().arrayNote.end(), [](const auto& note) { return !note->completed; });
    require(host.effects().badge() == open, "the badge is not the count of open notes");
}

void SessionWatch::checkRows()
{
    const Notes& notes = list().arrayNote;
    const CGRect sight = table().bounds();
    const CGFloat end = static_cast<CGFloat>(notes.size()) * 60 - sight.size.height;
    require(sight.minY() >= 0 && sight.minY() <= std::max(0.0, end), "the list is pulled past its end");
    std::set<std::int64_t> shown;
    for (const auto& row : rows()) {
        if (row == list().placeHolderCell) {
            require(m_pinchWasTakenAway, "the placeholder is still there");
            continue;
        }
        const std::optional<std::int64_t> place = table().placeOf(*row);
        require(place && *place < std::ssize(notes), "a row is there that is nobody's");
        shown.insert(*place);
        const auto& note = notes[static_cast<std::size_t>(*place)];
        const std::string name = "row " + std::to_string(*place) + " ";
        require(row->toDoItem() == note, name + "shows another note");
        // A date that was edited became the text; the row shows the old text until it is bound again.
        const bool showsText = m_datesEdited.contains(note) || row->label->text() == note->text.value_or("");
        require(showsText && row->labelData->text() == note->data.value_or(""), name + "shows another text");
        for (const std::string& oddity : oddities(*row)) {
            // One that was swiped when the gesture was taken away stays aside until the next one.
            require((oddity.front() == '>' && m_rows[row.get()].isLeftAside)
                    || (oddity.front() == 'v' && m_pinchWasTakenAway),
                name + "is " + oddity);
        }
    }
    for (std::int64_t place = 0; place < std::ssize(notes); ++place) {
        const CGFloat top = static_cast<CGFloat>(place) * 60;
        const bool isInSight = top < sight.maxY() && top + 60 > sight.minY();
        require(!isInSight || shown.contains(place), "row " + std::to_string(place) + " is not there");
    }
}

} // namespace velmorath
