#include "SettingsScreen.h"
#include "Bundle.h"
#include "CAGradientLayer.h"
#include "FatalError.h"
#include "Feedback.h"
#include "Print.h"
#include "RowLook.h"
#include "UIStoryboard.h"

namespace velmorath {

void SettingsScreen::viewDidLoad()
{
    UIViewController::viewDidLoad();
    const std::shared_ptr<UITableView> list = table();
    list->registerClass<UITableViewCell>("myCell");
    list->setBackgroundColor(UIColor::black());
    list->setRowHeight(kRowHeight);
}

void SettingsScreen::viewWillAppear(bool animated)
{
    UIViewController::viewWillAppear(animated);
    dizionarioSettaggi = loadSettings("Red");
    soundEffect = setting(dizionarioSettaggi, "soundEffect");
    vibration = setting(dizionarioSettaggi, "vibration");
    table()->reloadData();
}

void SettingsScreen::viewDidLayoutSubviews()
{
    UIViewController::viewDidLayoutSubviews();
    for (const auto& cell : table()->visibleCells()) {
        for (const auto& layer : cell->layer().sublayers()) {
            if (dynamic_cast<const CAGradientLayer*>(layer.get()))
                layer->setFrame(sheenFrame());
        }
    }
}

CGRect SettingsScreen::sheenFrame()
{
    return CGRectMake(0, 0, view()->bounds().size.width, kRowHeight);
}

bool SettingsScreen::escapePressed()
{
    chiudi();
    return true;
}

void SettingsScreen::chiudi()
{
    dismiss(true);
}

std::shared_ptr<UITableView> SettingsScreen::table() const
{
    std::shared_ptr<UITableView> connected = tabella.lock();
    if (!connected)
        fatalError("The screen's table is not connected");
    return connected;
}

const std::string& SettingsScreen::item(std::int64_t row) const
{
    if (row < 0 || row >= static_cast<std::int64_t>(items.size()))
        fatalError("There is no row " + std::to_string(row));
    return items[static_cast<std::size_t>(row)];
}

std::int64_t SettingsScreen::tableViewNumberOfRowsInSection(UITableView&, std::int64_t)
{
    return static_cast<std::int64_t>(items.size());
}

std::shared_ptr<UITableViewCell> SettingsScreen::makeCell(UITableView& list, IndexPath path)
{
    std::shared_ptr<UITableViewCell> cell = list.dequeueReusableCell("myCell", path);
    cell->textLabel().setText(item(path.row));
    cell->textLabel().setTextColor(UIColor::white());
    const auto sheen = std::make_shared<CAGradientLayer>();
    sheen->setFrame(sheenFrame());
    sheen->setGradient(rowSheen());
    cell->layer().insertSublayer(sheen, 0);
    return cell;
}

CGColor SettingsScreen::colorForIndex(std::int64_t index) const
{
    print("colorForIndex:");
    return themeColor(setting(dizionarioSettaggi, "theme"), rowRamp(index, items.size()));
}

void SettingsScreen::tableViewWillDisplayCellForRowAtIndexPath(
    UITableView&, UITableViewCell& cell, IndexPath path)
{
    cell.setBackgroundColor(colorForIndex(path.row));
}

void SettingsScreen::giveTapFeedback() const
{
    giveFeedback("ripristino", soundEffect, vibration);
}

void SettingsScreen::showTitle(const std::shared_ptr<UILabel>& label, std::string_view localizationKey)
{
    if (!label)
        fatalError("The screen's title label is not connected");
    label->setText(Bundle::main().localizedString(localizationKey));
}

void SettingsScreen::presentScreen(std::string_view identifier)
{
    const std::shared_ptr<UIViewController> screen =
        UIStoryboard::named("Main").instantiateViewController(identifier);
    screen->setModalPresentationStyle(UIModalPresentationStyle::fullScreen);
    present(screen, true);
}

} // namespace velmorath
