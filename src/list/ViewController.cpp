#include "ViewController.h"
#include "Bundle.h"
#include "DispatchQueue.h"
#include "FatalError.h"
#include "NFXIntroViewController.h"
#include "Print.h"
#include "UIAlertController.h"
#include "UIApplication.h"
#include "UNUserNotificationCenter.h"
#include "UserDefaults.h"
#include <algorithm>
#include <utility>

namespace velmorath {

void ViewController::viewDidLoad()
{
    UIViewController::viewDidLoad();
    runFirstLaunchExtras();

    const std::shared_ptr<UITableView> list = table();
    pinchRecognizer->addTarget([this](UIGestureRecognizer& recognizer) {
        handlePinch(static_cast<UIPinchGestureRecognizer&>(recognizer));
    });
    list->addGestureRecognizer(pinchRecognizer);
    list->setDataSource(this);
    list->setDelegate(this);
    list->registerClass<TableViewCell>("cell");
    list->setSeparatorStyle(UITableViewCellSeparatorStyle::none);
    list->setBackgroundColor(UIColor::black());
    list->setRowHeight(60.0);

    arrayNote = m_file.load();
    addSampleNote();
}

void ViewController::runFirstLaunchExtras()
{
    print("☢️☢️☢️☢️☢️☢️☢️ mostroPubblicità");
    UNUserNotificationCenter::current().requestAuthorization(
        UNAuthorizationOptions::badge | UNAuthorizationOptions::sound | UNAuthorizationOptions::alert,
        [](bool) {});

    UserDefaults& defaults = UserDefaults::standard();
    if (defaults.object("primoAvvioApp7"))
        return;
    print("è il primo avvio quindi devo mandare il tutorial");
    m_tutorialIsComing = true;
    DispatchQueue::main().asyncAfter(0.5, [this] { offerTutorial(); });
    defaults.setObject("primoAvvioApp7", "No");
    defaults.synchronize();
}

void ViewController::addSampleNote()
{
    UserDefaults& defaults = UserDefaults::standard();
    if (defaults.object("nuovaNota") || !arrayNote.empty())
        return;
    print("è il primo avvio quindi aggiungo una nota di prova");
    const auto note = std::make_shared<ToDoItem2>();
    note->text = "Hello!";
    arrayNote.push_back(note);
    // It makes way for a list that comes from another machine.
    m_file.setBase(arrayNote);
    defaults.setObject("nuovaNota", "No");
    defaults.synchronize();
}

void ViewController::offerTutorial()
{
    m_tutorialIsComing = false;
    const auto dialog =
        std::make_shared<UIAlertController>(Bundle::main().localizedString("Watch tutorial"), std::nullopt);
    dialog->addAction({"No", UIAlertActionStyle::destructive, {}});
    dialog->addAction({"Yes", UIAlertActionStyle::standard, [this] {
                           print("YES");
                           tutorialPrimaVolta();
                       }});
    present(dialog, true);
}

void ViewController::tutorialPrimaVolta()
{
    print("tutorialPrimaVolta");
    presentTutorial(*this, *this);
}

void ViewController::viewWillAppear(bool)
{
    dizionarioSettaggi = loadSettings("Blue");
    soundEffect = setting(dizionarioSettaggi, "soundEffect");
    vibration = setting(dizionarioSettaggi, "vibration");
    appIconBadge = setting(dizionarioSettaggi, "appIconBadge");
    theme = setting(dizionarioSettaggi, "theme");
    if (appIconBadge == "true")
        showBadge();
    table()->reloadData();
}

void ViewController::showBadge()
{
    ++m_badgeCounts;
    const auto open =
        std::count_if(arrayNote.begin(), arrayNote.end(), [](const auto& note) { return !note->completed; });
    UIApplication::shared().setApplicationIconBadgeNumber(open);
}

void ViewController::Info()
{
    performSegue("Info", shared_from_this());
}

void ViewController::settaggi()
{
    print("settaggi");
    table()->setEditing(!table()->isEditing());
    if (const auto button = riordina.lock())
        button->setSelected(table()->isEditing());
}

std::shared_ptr<UITableView> ViewController::table() const
{
    std::shared_ptr<UITableView> connected = tableView.lock();
    if (!connected)
        fatalError("The list's table is not connected");
    return connected;
}

std::vector<std::shared_ptr<TableViewCell>> ViewController::laidOutRows() const
{
    table()->layoutIfNeeded();
    std::vector<std::shared_ptr<TableViewCell>> rows;
    for (const auto& cell : table()->visibleCells())
        rows.push_back(std::static_pointer_cast<TableViewCell>(cell));
    return rows;
}

std::size_t ViewController::checkedIndex(std::int64_t index) const
{
    if (index < 0 || index >= static_cast<std::int64_t>(arrayNote.size()))
        fatalError("There is no note at the place " + std::to_string(index) + " of the list");
    return static_cast<std::size_t>(index);
}

void ViewController::saveNotes()
{
    m_file.save(arrayNote);
    if (m_file.hasNews())
        takeNewsLater();
}

std::int64_t ViewController::numberOfSectionsInTableView(UITableView&)
{
    return 1;
}

std::int64_t ViewController::tableViewNumberOfRowsInSection(UITableView&, std::int64_t)
{
    return static_cast<std::int64_t>(arrayNote.size());
}

CGFloat ViewController::tableViewHeightForRowAtIndexPath(UITableView&, IndexPath)
{
    return 60.0;
}

std::shared_ptr<UITableViewCell> ViewController::tableViewCellForRowAtIndexPath(
    UITableView& list, IndexPath path)
{
    const auto row = std::static_pointer_cast<TableViewCell>(list.dequeueReusableCell("cell", path));
    row->setSelectionStyle(UITableViewCellSelectionStyle::none);
    row->textLabel().setBackgroundColor(UIColor::clear());
    row->delegate = this;
    row->insertionDelegate = this;
    row->setToDoItem(arrayNote[checkedIndex(path.row)]);
    return row;
}

void ViewController::tableViewDidSelectRowAtIndexPath(UITableView& list, IndexPath path)
{
    print("----👍👍👍👍👍👍👍👍 didSelectRowAt");
    if (tastieraAttiva) {
        print("non permetto di caricare il dettaglio della nota perche l utente sta aggiungendone una");
        return;
    }
    const std::shared_ptr<UITableViewCell> row = list.cellForRow(path);
    const bool hasColor = row && row->backgroundColor() != UIColor::clear();
    const CGColor color = hasColor ? row->backgroundColor() : UIColor::blue();
    const std::shared_ptr<ToDoItem2>& note = arrayNote[checkedIndex(path.row)];
    m_opened = {note, stateOf(note)};
    performSegue("VistaNoteViewController", std::vector<std::any>{arrayNote, path.row, color});
}

void ViewController::prepareForSegue(UIStoryboardSegue& segue, const std::any& sender)
{
    if (segue.identifier != "VistaNoteViewController")
        return;
    auto& detail = dynamic_cast<VistaNoteViewController&>(segue.destination);
    detail.delegate = this;
    const auto* values = std::any_cast<std::vector<std::any>>(&sender);
    if (!values)
        fatalError("The transition to a note was started without a list of values");
    for (const std::any& value : *values) {
        if (const auto* index = std::any_cast<std::int64_t>(&value)) {
            detail.indirizzoNotaDaVisualizzare = *index;
            print("Oggetto Int: " + std::to_string(*index));
        } else if (const auto* notes = std::any_cast<std::vector<std::shared_ptr<ToDoItem2>>>(&value)) {
            detail.arrayNotePortato = *notes;
            print("array trovato");
        } else if (const auto* color = std::any_cast<CGColor>(&value)) {
            detail.coloreNota = *color;
            print("colore trovato");
        }
    }
}

void ViewController::nuovoArrayNote(const std::vector<std::shared_ptr<ToDoItem2>>& list)
{
    print("------ nuovoArrayNote");
    arrayNote = list;
    saveNotes();
    table()->reloadData();
    if (const auto [note, before] = std::exchange(m_opened, {}); note) {
        rememberChange(stateOf(note).place ? "Edit" : "Delete", note, before);
    }
    UIApplication::shared().announce(Bundle::main().localizedString("Saved"));
}

void ViewController::chiusoTutorial()
{
    print("chiusoTutorial");
}

} // namespace velmorath
