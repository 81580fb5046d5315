#include "SettingsScenes.h"
#include "Bundle.h"
#include "Info.h"
#include "Info2.h"
#include "Info3.h"
#include "SceneParts.h"

namespace velmorath {

namespace {

/// Returns the label of the title, which is still empty. `name` is the screen's for those who do not see it.
std::shared_ptr<UILabel> fillScreen(SettingsScreen& screen, UIView& view, std::string_view name)
{
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());
    view.setAccessibilityLabel(Bundle::main().localizedString(name));

    const std::shared_ptr<UIView> bar = topBar(size.width);
    bar->setBackgroundColor(UIColor::black());
    bar->addSubview(leftBarButton("chiudi", "Close", [&screen] { screen.chiudi(); }));
    auto title = std::make_shared<UILabel>(CGRectMake(barHeight, 0, size.width - 2 * barHeight, barHeight));
    title->setAutoresizingMask(UIViewAutoresizing::flexibleWidth);
    title->setFont(UIFont::boldSystemFont(20));
    title->setTextColor(UIColor::white());
    title->setTextAlignment(CGTextAlignment::center);
    title->setHeading(true);
    bar->addSubview(title);
    view.addSubview(bar);

    const auto table =
        std::make_shared<UITableView>(CGRectMake(0, barHeight, size.width, size.height - barHeight));
    table->setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleHeight);
    table->setAccessibilityLabel(view.accessibilityLabel());
    table->setDataSource(&screen);
    table->setDelegate(&screen);
    view.addSubview(table);
    screen.tabella = table;
    return title;
}

void fillInformation(UIViewController& controller, UIView& view)
{
    fillScreen(static_cast<Info&>(controller), view, "Information")->setText("Velmorath");
}

/// A screen that writes its title itself, and whose table does not scroll.
template <typename Screen>
void fillTitledScreen(UIViewController& controller, UIView& view, std::string_view name)
{
    auto& screen = static_cast<Screen&>(controller);
    screen.titolo = fillScreen(screen, view, name);
    const std::shared_ptr<UITableView> table = screen.tabella.lock();
    const CGFloat height = static_cast<CGFloat>(screen.items.size()) * screen.kRowHeight;
    view.addSubview(std::make_shared<TableScroller>(table->frame(), table, height));
}

void fillOptions(UIViewController& controller, UIView& view)
{
    fillTitledScreen<Info2>(controller, view, "Settings");
}

void fillThemes(UIViewController& controller, UIView& view)
{
    fillTitledScreen<Info3>(controller, view, "Theme");
}

} // namespace

std::vector<UIStoryboardScene> settingsScenes()
{
    return {
        {"Info", [] { return std::make_shared<Info>(); }, fillInformation},
        {"Info2", [] { return std::make_shared<Info2>(); }, fillOptions},
        {"Info3", [] { return std::make_shared<Info3>(); }, fillThemes},
    };
}

} // namespace velmorath
