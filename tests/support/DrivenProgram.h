#pragma once

#include "Finger.h"
#include "HeadlessHost.h"
#include "NoteCopies.h"
#include "Settings.h"
#include "UserDefaults.h"
#include "ViewController.h"

namespace velmorath {

using Lines = std::vector<std::string>;

/// The whole program on a screen of 320 x 536 points: eight rows of 60 points above the bar with its two
/// buttons. It is touched as by a finger; time passes while it is, and stands still between.
class DrivenProgram {
public:
    DrivenProgram();
    ~DrivenProgram();

    /// Puts the options and notes of an earlier day on the disk.
    void put(const Notes&, const SettingsDictionary&);
    /// Starts as on any day but the first, with notes of these texts in the file. One that begins with "x "
    /// is completed.
    void start(const Lines& texts, const std::string& theme = "Blue");
    /// As many notes, each of which is its place.
    static Lines numbers(int count);
    static Notes notesFrom(const Lines& texts);
    /// Starts with whatever is on the disk.
    void launch();
    /// Quits, forgets all that is only in memory, and starts again with what is on the disk.
    void relaunch();
    /// What the program keeps in memory from one start to the next in one process, as no other process would.
    static void forgetState();

    ViewController& list() const;
    UITableView& table() const { return *list().tableView.lock(); }
    /// The row that is this many below the first one in sight.
    TableViewCell& row(std::size_t place) const { return *rows().at(place); }
    std::vector<std::shared_ptr<TableViewCell>> rows() const;
    /// What of a row is not as its note, its place and the theme want it: ">" how far aside, "v" how far
    /// below, "%" how opaque, "~" of another colour, and more in words.
    Lines oddities(const TableViewCell&);
    /// To hundredths.
    static std::string rounded(CGFloat);
    /// The texts of the list, and of the notes in the file; "x " marks completed ones.
    Lines notes() const { return textsOf(list().arrayNote); }
    Lines saved();
    /// Nothing when there is no file or no list in it.
    std::optional<Notes> savedNotes();
    std::string archivePath();
    std::shared_ptr<UIViewController> presented() const { return list().presentedViewController(); }

    Lines filesInDocuments();
    /// Puts a setting in the store, before the start or between two appearances of the list.
    void set(const std::string& key, const std::string& value);
    /// From now on every operation of this kind fails, until all work again.
    void failOn(HeadlessFiles::Operation);
    void failOnNothing() { host.files().setFault({}); }

    /// The lines written since this was last asked; only those that contain the text, if one is given.
    Lines takeLines(const std::string& containing = {});
    Lines takeFelt();
    /// How many of the lines since they were last taken are this one.
    std::size_t countLines(const std::string& line);
    long long badge() { return host.effects().badge().value_or(-1); }

    void tap(CGPoint);
    /// On a row's words, or where a row has none.
    void tapWords(std::size_t place) { tap({20, place * 60.0 + 30}); }
    void tapBesideWords(std::size_t place) { tap({240, place * 60.0 + 30}); }
    void tapReorder() { tap({28, host.screen().size().height - 28}); }
    /// Sideways on a row, and lets go.
    void swipe(std::size_t place, CGFloat points) { beginSwipe(place, points).lift(); }
    /// Puts a finger on a row and moves it sideways; it stays down.
    Finger beginSwipe(std::size_t place, CGFloat points);
    /// Pulls the list down from its top until it gave so many points; the finger stays down.
    Finger beginPull(CGFloat depth);
    void movePull(Finger&, CGFloat depth);
    /// Drags the list by so many points and lets go when it stands; upwards is negative.
    void scroll(CGFloat points);
    /// Types over the whole text that is being edited, and presses return.
    void type(const std::string& text);

    /// The ways to and on the information, options and theme screens; what is opened is there afterwards.
    void openInformation();
    void openOptions();
    void openThemes();
    void tapRow(std::size_t place);
    void close();

    HeadlessHost host{VELMORATH_RESOURCES};

private:
    static Lines textsOf(const Notes&);
    void tapAndWait(CGPoint);
};

} // namespace velmorath
