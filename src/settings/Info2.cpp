#include "Info2.h"
#include "Bundle.h"
#include "FatalError.h"
#include "Print.h"
#include "SalvoEPrelevoDatiDaFile.h"
#include "UIApplication.h"
#include <array>

namespace velmorath {

namespace {

/// What the switches stand for, in the order of their rows.
constexpr std::array<const char*, 3> switches = {"appIconBadge", "soundEffect", "vibration"};
constexpr std::int64_t themeRow = switches.size();

const char* switchAt(std::int64_t row)
{
    return switches.at(static_cast<std::size_t>(row));
}

std::vector<std::string> rowTitles()
{
    Bundle& bundle = Bundle::main();
    return {bundle.localizedString("Icon badge"), bundle.localizedString("Sound effect"),
        bundle.localizedString("Vibration"), bundle.localizedString("Theme")};
}

void showSwitch(UITableViewCell& cell, bool isOn)
{
    cell.setAccessoryType(
        isOn ? UITableViewCellAccessoryType::checkmark : UITableViewCellAccessoryType::none);
    cell.setAccessibilityToggle(true);
    cell.setAccessibilityValue(Bundle::main().localizedString(isOn ? "On" : "Off"));
}

} // namespace

Info2::Info2()
    : SettingsScreen(rowTitles())
{
}

void Info2::viewDidLoad()
{
    SettingsScreen::viewDidLoad();
    table()->setScrollEnabled(false);
}

void Info2::viewDidLayoutSubviews()
{
    SettingsScreen::viewDidLayoutSubviews();
    showTitle(titolo, "Settings");
}

std::shared_ptr<UITableViewCell> Info2::tableViewCellForRowAtIndexPath(UITableView& list, IndexPath path)
{
    std::shared_ptr<UITableViewCell> cell = makeCell(list, path);
    cell->setSelectionStyle(UITableViewCellSelectionStyle::none);
    cell->setBackgroundColor(UIColor::red());
    if (path.row < themeRow) {
        showSwitch(*cell, isOn(switchAt(path.row)));
        return cell;
    }
    cell->setAccessoryType(UITableViewCellAccessoryType::none);
    cell->setAccessibilityToggle(false);
    cell->setAccessibilityValue("");
    cell->textLabel().setText(item(path.row) + "    :    " + setting(dizionarioSettaggi, "theme"));
    return cell;
}

void Info2::tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath path)
{
    print("didSelectRowAtIndexPath  You selected cell #" + std::to_string(path.row) + "!");
    giveTapFeedback();
    if (path.row >= themeRow) {
        print("carico vista Info3");
        presentScreen("Info3");
        return;
    }
    toggle(path);
    saveSettings(dizionarioSettaggi);
}

void Info2::tableViewDidDeselectRowAtIndexPath(UITableView&, IndexPath)
{
    print("didDeselectRowAtIndexPath");
}

void Info2::toggle(IndexPath path)
{
    const std::shared_ptr<UITableViewCell> cell = table()->cellForRow(path);
    if (!cell)
        fatalError("The tapped row is not in sight");
    const bool isSelected = cell->accessoryType() == UITableViewCellAccessoryType::checkmark;
    const std::string value = isSelected ? "false" : "true";
    print(std::string("isSelected : ") + (isSelected ? "true" : "false"));
    if (path.row == 0)
        print(isSelected ? "isSelected" : "else");
    showSwitch(*cell, !isSelected);
    dizionarioSettaggi.insert_or_assign(switchAt(path.row), value);
    if (path.row == 0)
        switchBadge(!isSelected);
    else if (path.row == 1)
        soundEffect = value;
    else
        vibration = value;
}

void Info2::switchBadge(bool on)
{
    long long numeroBadge = 0;
    if (on) {
        for (const auto& note : SalvoEPrelevoDatiDaFile().UnarchiveResults()) {
            if (note->completed)
                continue;
            print("aggiungo valore al badge");
            ++numeroBadge;
            print("numeroBadge : " + std::to_string(numeroBadge));
        }
    }
    UIApplication::shared().setApplicationIconBadgeNumber(numeroBadge);
}

} // namespace velmorath
