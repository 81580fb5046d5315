#pragma once

#include "DrivenProgram.h"
#include <map>
#include <set>
#include <string>

namespace velmorath {

/// The program on the headless host, watched: each step is compared with the one before, and when everything
/// has come to rest the screen, the file and the badge with the list. What must not be ends the process with
/// a line that says it.
class SessionWatch : public DrivenProgram {
public:
    SessionWatch();

    /// A list and options of an earlier day, before the start. Every third note is completed.
    void putNotes(std::size_t count, bool badge, std::size_t theme);
    void start();

    /// Where each finger is that is down.
    const std::map<std::int64_t, CGPoint>& fingers() const { return m_fingers; }
    /// Fingers that are not down move and leave nowhere.
    void touch(const std::vector<HostTouch>&);
    void press(const HostKeyPress&);
    /// Chooses an element of what is on the screen, or was when it was read last, and presses it, does one of
    /// its actions or points keys at it.
    void useReader(bool readsFirst, std::size_t kind, std::size_t element, std::size_t action);
    void advance(double seconds);
    /// Anything else that happens.
    void act(const std::string& name, const std::function<void()>&);
    void setDiskFails(bool);
    /// Another machine adds a note, deletes, completes, edits or moves one, and a synchroniser brings that:
    /// as the list, or as a copy beside it.
    void changeFromOutside(std::size_t kind, std::size_t place, bool isCopy);
    /// The program ends, and starts again over the same files.
    void restart();
    /// Lifts the fingers, ends the typing, lets three seconds pass, and looks at everything.
    void comeToRest();
    /// Comes to rest, takes back all that was done since the start, and looks whether it is.
    void takeAllBack();

private:
    /// Every note of the list, with its place.
    using NoteStates = std::map<std::shared_ptr<ToDoItem2>, NoteState>;
    /// What a row was after the last step.
    struct Watched {
        std::shared_ptr<ToDoItem2> note;
        CGFloat x = 0;
        /// A gesture is going on in it, or a text is typed into it.
        bool isHeld = false;
        bool hasGesture = false;
        bool isSwiped = false;
        /// A text was typed during the gesture.
        bool wasTyping = false;
        /// A gesture that was taken away or did not count left it where it was.
        bool isLeftAside = false;
    };

    /// Those that are kept for a moment, too.
    std::vector<std::shared_ptr<TableViewCell>> rows() const;
    void watchFromNowOn();
    NoteStates listNow() const;
    /// Whether what was written last got there.
    void noteWrites();
    /// A row that is moved while a new note is typed is saved with it: a disk that fails then leaves it
    /// there.
    bool wasEmptyAtStart(const std::shared_ptr<ToDoItem2>&) const;
    void compareNotes();
    void watchGestures(bool isLift);
    void checkRows();
    bool isListInFile();
    void checkBadge();
    void require(bool, const std::string& what) const;

    /// What the list was after the last step.
    NoteStates m_known;
    /// The notes that the current step may complete or delete, and those whose text it may change.
    std::set<std::shared_ptr<ToDoItem2>> m_targets;
    std::shared_ptr<ToDoItem2> m_typed;
    std::shared_ptr<ToDoItem2> m_inDetail;
    std::map<std::int64_t, CGPoint> m_fingers;
    std::map<std::int64_t, std::shared_ptr<ToDoItem2>> m_underFingers;
    std::map<const TableViewCell*, Watched> m_rows;
    std::set<std::shared_ptr<ToDoItem2>> m_datesEdited;
    bool m_wasPinching = false;
    bool m_pinchWasTakenAway = false;
    bool m_isInFile = true;
    /// Others changed the file: since the list was looked at last at rest, and since the start.
    bool m_hasNews = false;
    bool m_hadNews = false;
    /// How many of the announcements were looked at.
    std::size_t m_heard = 0;
    /// What the list was at the start of the program.
    NoteStates m_first;
    AccessibilityElement m_tree;
    std::string m_step;
    bool m_tells;
};

} // namespace velmorath
