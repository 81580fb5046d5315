#include "Bundle.h"
#include "Host.h"
#include "KeyedArchiver.h"
#include "NoteCopies.h"
#include "UIAlertController.h"
#include "UIApplication.h"
#include "ViewController.h"
#include <algorithm>
#include <chrono>
#include <set>

namespace velmorath {

namespace {

std::string words(std::string_view key)
{
    return Bundle::main().localizedString(key);
}

/// Such as "velmorath-2026-11-23.archive".
std::string nameOfCopy()
{
    const auto day = static_cast<int>(std::floor(Host::current().clock().wallTime() / 86400));
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{day}}};
    const auto twoDigits = [](unsigned number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return "velmorath-" + std::to_string(static_cast<int>(date.year())) + "-"
        + twoDigits(static_cast<unsigned>(date.month())) + "-" + twoDigits(static_cast<unsigned>(date.day()))
        + ".archive";
}

} // namespace

void ViewController::offerSharing()
{
    const auto sheet = std::make_shared<UIAlertController>(
        words("Share"), std::nullopt, UIAlertControllerStyle::actionSheet);
    if (!arrayNote.empty()) {
        sheet->addAction({words("Share list"), UIAlertActionStyle::standard, [this] { shareList(); }});
        sheet->addAction({words("Save a copy"), UIAlertActionStyle::standard, [this] { saveCopy(); }});
    }
    sheet->addAction({words("Open a copy"), UIAlertActionStyle::standard, [this] { openCopy(); }});
    sheet->addAction({words("Cancel"), UIAlertActionStyle::cancel, {}});
    present(sheet, true);
}

void ViewController::shareList()
{
    Host::current().documents().share(
        textOfNotes(arrayNote), [this, weakSelf = weak_from_this()](Documents::Shared how) {
            if (weakSelf.expired() || how == Documents::Shared::handedOver)
                return;
            tell(how == Documents::Shared::copied ? "The list is on the clipboard."
                                                  : "The list could not be shared.");
        });
}

void ViewController::saveCopy()
{
    Host::current().documents().save(nameOfCopy(), KeyedArchiver::archivedData(arrayNote),
        [this, weakSelf = weak_from_this()](const std::optional<Error>& error) {
            if (!weakSelf.expired() && error)
                tell("The copy could not be saved.");
        });
}

void ViewController::openCopy()
{
    Host::current().documents().open(
        [this, weakSelf = weak_from_this()](const Result<std::optional<std::string>>& file) {
            if (weakSelf.expired())
                return;
            if (!file)
                addCopy(file.error());
            else if (*file)
                addCopy(**file);
        });
}

bool ViewController::addCopy(const Result<std::string>& file)
{
    // It may go on to hand back the list that it was given.
    if (presentedViewController() || m_tutorialIsComing)
        return false;
    const Result<Notes> copy = file ? notesOfCopy(*file) : Result<Notes>(file.error());
    if (!copy) {
        tell("The file cannot be read.");
        return true;
    }
    table()->endEditing();
    const Notes missing = notesMissing(arrayNote, *copy);
    if (missing.empty())
        tell("The list has all of its notes already.");
    else
        addOnTop(missing, fromTheTop());
    return true;
}

void ViewController::addOnTop(const std::vector<std::shared_ptr<ToDoItem2>>& notes, const Sight& before)
{
    arrayNote.insert(arrayNote.begin(), notes.begin(), notes.end());
    m_undoManager.registerUndo(words("Open a copy"), [this, notes] { takeAway(notes); });
    showAllAnew(before);
    showUndo();
    UIApplication::shared().announce(words("Open a copy"));
}

void ViewController::takeAway(const std::vector<std::shared_ptr<ToDoItem2>>& notes)
{
    const std::set<std::shared_ptr<ToDoItem2>> gone(notes.begin(), notes.end());
    std::erase_if(arrayNote, [&](const auto& note) { return gone.contains(note); });
    m_undoManager.registerUndo(words("Open a copy"), [this, notes] { addOnTop(notes, fromTheTop()); });
    showAllAnew(fromTheTop());
}

void ViewController::showAllAnew(const Sight& before)
{
    saveNotes();
    if (appIconBadge == "true")
        showBadge();
    if (before.rows.empty())
        table()->setContentOffset({0, 0});
    // It is laid out at once: a finger that comes before the next frame finds each note where it is now.
    showAgain(before);
}

void ViewController::tell(std::string_view what)
{
    const auto alert = std::make_shared<UIAlertController>(words(what), std::nullopt);
    alert->addAction({"OK", UIAlertActionStyle::standard, {}});
    present(alert, true);
}

} // namespace velmorath
