#include "Info3.h"
#include "DispatchQueue.h"
#include "Print.h"

namespace velmorath {

Info3::Info3()
    : SettingsScreen({"Red", "Green", "Violet", "Blue", "Yellow", "Mixed", "Black"})
{
}

void Info3::viewDidLoad()
{
    SettingsScreen::viewDidLoad();
    table()->setScrollEnabled(false);
}

void Info3::viewDidLayoutSubviews()
{
    SettingsScreen::viewDidLayoutSubviews();
    showTitle(titolo, "Select theme");
}

std::shared_ptr<UITableViewCell> Info3::tableViewCellForRowAtIndexPath(UITableView& list, IndexPath path)
{
    std::shared_ptr<UITableViewCell> cell = makeCell(list, path);
    cell->setSelectionStyle(UITableViewCellSelectionStyle::none);
    const bool isChosen = item(path.row) == setting(dizionarioSettaggi, "theme");
    cell->setAccessoryType(
        isChosen ? UITableViewCellAccessoryType::checkmark : UITableViewCellAccessoryType::none);
    cell->setAccessibilityRole(AccessibilityRole::option);
    return cell;
}

void Info3::tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath path)
{
    print("You selected cell #" + std::to_string(path.row) + "!");
    giveTapFeedback();
    print("salvo il nuovo colore");
    const std::string& theme = item(path.row);
    print("1");
    print("dizionarioSettaggi : " + description(dizionarioSettaggi));
    dizionarioSettaggi.insert_or_assign("theme", theme);
    print("2");
    saveSettings(dizionarioSettaggi);
    // The checkmark and the tints follow when this tap is over.
    DispatchQueue::main().async([weakTable = tabella] {
        if (const auto list = weakTable.lock())
            list->reloadData();
    });
}

} // namespace velmorath
