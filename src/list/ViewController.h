#pragma once

#include "NoteState.h"
#include "Result.h"
#include "Settings.h"
#include "SharedNoteFile.h"
#include "TableViewCell.h"
#include "TouchPoints.h"
#include "UIButton.h"
#include "UIPinchGestureRecognizer.h"
#include "UITableView.h"
#include "UIViewController.h"
#include "UndoButton.h"
#include "UndoManager.h"
#include "VistaNoteViewController.h"
#include "delegatoTutorialChiuso.h"
#include <optional>

namespace velmorath {

/// The main screen: the list of notes. One class with eight concerns, each in its own source file: the
/// screen's life, its rows and the ways to other screens (ViewController.cpp), the colours of the rows
/// (+Themes), what happens to notes (+Actions), what takes it back (+Undo), copies (+Sharing), what others
/// changed in the file (+News), and the two gestures that insert a note (+PullDown, +Pinch).
class ViewController : public UIViewController,
                       public UITableViewDataSource,
                       public UITableViewDelegate,
                       public TableViewCellDelegate,
                       public TableViewCellInsertionDelegate,
                       public delegatoRicaricaNote,
                       public delegatoTutorialChiuso {
public:
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    /// Insert adds a note at the top.
    bool keyPressed(const HostKeyPress&) override;

    /// The information button.
    void Info();
    /// The reorder button: into the mode in which rows are dragged to other places, and back.
    void settaggi();
    /// Not while a text is typed.
    bool canAddNote() const { return !tastieraAttiva; }
    /// Adds a note at the top and starts to type it. False when none can be added now.
    bool nuovaNota();
    void tutorialPrimaVolta();

    void prepareForSegue(UIStoryboardSegue&, const std::any& sender) override;
    void nuovoArrayNote(const std::vector<std::shared_ptr<ToDoItem2>>& list) override;
    void chiusoTutorial() override;

    std::int64_t numberOfSectionsInTableView(UITableView&) override;
    std::int64_t tableViewNumberOfRowsInSection(UITableView&, std::int64_t section) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, IndexPath) override;
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath) override;

    // +Themes
    CGColor colorForIndex(std::int64_t index) const;
    void tableViewWillDisplayCellForRowAtIndexPath(UITableView&, UITableViewCell&, IndexPath) override;

    // +Actions
    void cellDidBeginEditing(TableViewCell& editingCell) override;
    void cellDidEndEditing(TableViewCell& editingCell) override;
    void toDoItemRiaperto(const std::shared_ptr<ToDoItem2>&) override;
    void toDoItemCambiaColoreALetto(const std::shared_ptr<ToDoItem2>&) override;
    void toDoItemDeleted(const std::shared_ptr<ToDoItem2>&) override;
    void toDoItemAddedBelow(const std::shared_ptr<ToDoItem2>&) override;
    bool tableViewCanEditRowAtIndexPath(UITableView&, IndexPath) override;
    bool tableViewShouldIndentWhileEditingRowAtIndexPath(UITableView&, IndexPath) override;
    UITableViewCellEditingStyle tableViewEditingStyleForRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewMoveRowAtIndexPathToIndexPath(UITableView&, IndexPath from, IndexPath to) override;

    // +PullDown
    void scrollViewWillBeginDragging(UIScrollView&) override;
    void scrollViewDidScroll(UIScrollView&) override;
    void scrollViewDidEndDragging(UIScrollView&, bool willDecelerate) override;
    /// Inserts a new empty note and starts to type it. An index outside the list is fatal.
    void toDoItemAddedAtIndex(std::int64_t index);

    // +Undo
    /// Takes the last change of a note back, or makes it again. False when there is none, or not just now.
    bool takeBack();
    bool doAgain();

    // +Sharing
    /// The share button: hands the list to other programs, saves a copy, opens one.
    void offerSharing();
    /// Adds the notes of a copy that the list does not have, on top. What cannot be read is told. False, and
    /// nothing is added, while another screen is there.
    bool addCopy(const Result<std::string>& file);

    // +News
    /// Takes in what others put in the notes' place or beside them, as soon as nothing else is going on.
    void takeNews();

    // +Pinch
    void handlePinch(UIPinchGestureRecognizer&);

    std::vector<std::shared_ptr<ToDoItem2>> arrayNote;
    SettingsDictionary dizionarioSettaggi;
    std::string soundEffect;
    std::string vibration;
    std::string appIconBadge;
    std::string theme;
    bool tastieraAttiva = false;
    std::weak_ptr<UITableView> tableView;
    std::weak_ptr<UIButton> riordina;
    std::weak_ptr<UndoButton> annulla;
    const std::shared_ptr<UIPinchGestureRecognizer> pinchRecognizer =
        std::make_shared<UIPinchGestureRecognizer>();
    const double kRowHeight = 60.0;
    std::int64_t upperCellIndex = -100;
    std::int64_t lowerCellIndex = -100;
    std::optional<TouchPoints> initialTouchPoints;
    bool pinchExceededRequiredDistance = false;
    bool pinchInProgress = false;
    const std::shared_ptr<TableViewCell> placeHolderCell =
        std::make_shared<TableViewCell>(UITableViewCellStyle::standard, "cell");
    bool pullDownInProgress = false;

private:
    /// The table. That the storyboard has not connected it is fatal.
    std::shared_ptr<UITableView> table() const;
    /// The rows in sight. The table is laid out first: what a row shows may be another note then.
    std::vector<std::shared_ptr<TableViewCell>> laidOutRows() const;
    /// The same index. One that is outside the list is fatal.
    std::size_t checkedIndex(std::int64_t) const;
    void saveNotes();

    void runFirstLaunchExtras();
    void offerTutorial();
    void addSampleNote();
    void showBadge();

    /// The colour of index 0, without the lines that tell how it came about.
    CGColor colorForFirstRow() const;

    /// Returns the same number.
    long long changeBadge(long long by) const;
    /// Tells those who do not see the list what became of a note.
    static void announce(std::string_view what, const ToDoItem2&);
    /// Marks a note as completed or open, and saves.
    void setCompleted(const std::shared_ptr<ToDoItem2>&, bool completed);
    /// The place of this very note in the list; 0 for a note that is not in it.
    std::int64_t indexOf(const ToDoItem2&) const;
    /// While a text is typed: the row moves and fades with the others, the one that is typed into moves only.
    void giveWay(TableViewCell&) const;
    /// Hides the note's row among these rows in sight and moves the ones below it up.
    void closeGapOf(const ToDoItem2&, const std::vector<std::shared_ptr<TableViewCell>>& rows);

    struct UndoStep {
        std::string name;
        /// What it made of the note.
        NoteState after;
        /// What it did to the badge, and how often that had been counted anew by then.
        long long badge;
        int badgeCounts;
    };
    NoteState stateOf(const std::shared_ptr<ToDoItem2>&) const;
    /// What a note was before it was typed, if it was, in the place where it is now; the typing is over then.
    NoteState stateBeforeTyping(const std::shared_ptr<ToDoItem2>&);
    /// A note was changed by the user, and the badge by this much: what they were before is to be had back.
    void rememberChange(std::string_view action, const std::shared_ptr<ToDoItem2>&, const NoteState& before,
        long long badge = 0);
    void registerRestore(const std::shared_ptr<ToDoItem2>&, const NoteState&, const UndoStep&);
    void restore(const std::shared_ptr<ToDoItem2>&, const NoteState&, const UndoStep&);
    void showRestored(std::optional<std::int64_t> from, std::optional<std::int64_t> to);
    /// Not while a text is typed or fingers do something else.
    bool canTakeBack() const;
    /// Back or again: says what is done to the step of this name, and does it. False when it may not be.
    bool takeStep(std::string_view what, const std::string& name, void (UndoManager::*step)());
    void showUndo() const;

    /// Whether what is on the screen may change by itself.
    bool isAtRest() const;
    void takeNewsLater();
    void showNews(const std::vector<MergedNote>&);
    /// The notes in sight with how far below the list's top each is shown, and the one that the keys are on.
    struct Sight {
        std::vector<std::pair<std::shared_ptr<ToDoItem2>, CGFloat>> rows;
        std::shared_ptr<ToDoItem2> focused;
    };
    Sight sight() const;
    /// The list from its top, and the keys where they are.
    static Sight fromTheTop() { return {{}, focusedNote()}; }
    /// Reloads the list. What was in sight stays where it is.
    void showAgain(const Sight&);
    /// The note of the row that the keys are on.
    static std::shared_ptr<ToDoItem2> focusedNote();
    void keepFocusOn(const std::shared_ptr<ToDoItem2>&) const;

    void shareList();
    void saveCopy();
    void openCopy();
    /// These two take each other back. What is to stay in sight does.
    void addOnTop(const std::vector<std::shared_ptr<ToDoItem2>>&, const Sight&);
    void takeAway(const std::vector<std::shared_ptr<ToDoItem2>>&);
    void showAllAnew(const Sight&);
    /// In a box with a button.
    void tell(std::string_view what);

    /// Puts the placeholder above the first row and shows how far the list is pulled. y is its offset.
    void showPull(CGFloat y);

    TouchPoints getNormalizedTouchPoints(const UIPinchGestureRecognizer&) const;
    bool viewContainsPoint(const UIView&, CGPoint) const;
    void pinchStarted(const UIPinchGestureRecognizer&);
    void pinchChanged(const UIPinchGestureRecognizer&);
    void pinchEnded();

    /// How far the rows have moved for the one that is typed into.
    CGFloat m_typingOffset = 0;

    SharedNoteFile m_file;
    bool m_newsIsWaiting = false;

    UndoManager m_undoManager;
    /// A note that is being changed, by typing or in the detail screen, and what it was before.
    struct Changing {
        std::shared_ptr<ToDoItem2> note;
        NoteState before;
    };
    Changing m_typed;
    Changing m_opened;
    int m_badgeCounts = 0;
    /// Nothing else may come up before the offer of the tutorial does: it would be lost.
    bool m_tutorialIsComing = false;
};

} // namespace velmorath
