#include "MainStoryboard.h"
#include "SceneParts.h"
#include "SettingsScenes.h"
#include "ViewController.h"
#include "VistaNoteViewController.h"

namespace velmorath {

namespace {

constexpr unsigned fillsWidth = UIViewAutoresizing::flexibleWidth;

void fillList(UIViewController& controller, UIView& view)
{
    auto& list = static_cast<ViewController&>(controller);
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());

    const auto table = std::make_shared<UITableView>(CGRectMake(0, 0, size.width, size.height - barHeight));
    table->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleHeight);
    view.addSubview(table);
    list.tableView = table;

    const auto bar = std::make_shared<UIView>(CGRectMake(0, size.height - barHeight, size.width, barHeight));
    bar->setBackgroundColor(UIColor::black());
    bar->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleTopMargin);
    bar->addSubview(leftBarButton("riordina", [&list] { list.settaggi(); }));
    bar->addSubview(rightBarButton(size.width, "info", [&list] { list.Info(); }));
    view.addSubview(bar);
}

void fillNote(UIViewController& controller, UIView& view)
{
    auto& note = static_cast<VistaNoteViewController&>(controller);
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());

    const std::shared_ptr<UIView> bar = topBar(size.width);
    bar->addSubview(leftBarButton("chiudi", [&note] { note.chiudi(); }));
    bar->addSubview(rightBarButton(size.width, "ok", [&note] { note.ok(); }));

    const auto text = std::make_shared<UITextView>(CGRect{});
    text->setFont(UIFont::systemFont(22));
    text->setTextColor(UIColor::white());
    view.addSubview(
        std::make_shared<ReadingColumn>(CGRectMake(0, barHeight, size.width, size.height - barHeight), text));
    view.addSubview(bar);
    note.barra = bar;
    note.testo = text;
}

} // namespace

void enterMainStoryboard()
{
    std::vector<UIStoryboardScene> scenes{
        {"ViewController", [] { return std::make_shared<ViewController>(); }, fillList,
            {{"Info", "Info"}, {"VistaNoteViewController", "VistaNoteViewController"}}},
        {"VistaNoteViewController", [] { return std::make_shared<VistaNoteViewController>(); }, fillNote},
    };
    for (UIStoryboardScene& scene : settingsScenes())
        scenes.push_back(std::move(scene));
    UIStoryboard::enter("Main", std::move(scenes));
}

} // namespace velmorath
