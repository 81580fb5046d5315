#include "MainStoryboard.h"
#include "Bundle.h"
#include "SceneParts.h"
#include "SettingsScenes.h"
#include "UIAccessibilityButton.h"
#include "ViewController.h"
#include "VistaNoteViewController.h"

namespace velmorath {

namespace {

constexpr unsigned fillsWidth = UIViewAutoresizing::flexibleWidth;
constexpr CGFloat textMargin = 16;

/// What pulling the list down does, between the buttons of the bar.
std::shared_ptr<UIView> addButton(CGFloat viewWidth, ViewController& list)
{
    const CGRect middle = CGRectMake(2 * barHeight, 0, viewWidth - 4 * barHeight, barHeight);
    auto button = std::make_shared<UIAccessibilityButton>(
        middle, Bundle::main().localizedString("Add note"), [&list] { return list.canAddNote(); },
        [&list] { return list.nuovaNota(); });
    button->setAutoresizingMask(fillsWidth);
    return button;
}

void fillList(UIViewController& controller, UIView& view)
{
    auto& list = static_cast<ViewController&>(controller);
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());
    view.setAccessibilityLabel("Velmorath");

    const auto table = std::make_shared<UITableView>(CGRectMake(0, 0, size.width, size.height - barHeight));
    table->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleHeight);
    table->setAccessibilityLabel(Bundle::main().localizedString("Notes"));
    view.addSubview(table);
    list.tableView = table;

    const auto bar = std::make_shared<UIView>(CGRectMake(0, size.height - barHeight, size.width, barHeight));
    bar->setBackgroundColor(UIColor::black());
    bar->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleTopMargin);
    const auto reorder = leftBarButton("riordina", "Reorder notes", [&list] { list.settaggi(); });
    reorder->setToggle(true);
    bar->addSubview(reorder);
    list.riordina = reorder;
    const auto undo = std::make_shared<UndoButton>(CGRectMake(barHeight, 0, barHeight, barHeight));
    undo->setImage(barPicture("annulla"));
    undo->addTarget([&list](UIControl&) { list.takeBack(); });
    undo->setHoldAction([&list] { list.doAgain(); });
    undo->setHidden(true);
    bar->addSubview(undo);
    list.annulla = undo;
    const auto share =
        rightBarButton(size.width - barHeight, "condividi", "Share", [&list] { list.offerSharing(); });
    bar->addSubview(share);
    bar->addSubview(addButton(size.width, list));
    bar->addSubview(rightBarButton(size.width, "info", "Information", [&list] { list.Info(); }));
    view.addSubview(bar);
}

void fillNote(UIViewController& controller, UIView& view)
{
    auto& note = static_cast<VistaNoteViewController&>(controller);
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());
    view.setAccessibilityLabel(Bundle::main().localizedString("Note"));

    const std::shared_ptr<UIView> bar = topBar(size.width);
    bar->addSubview(leftBarButton("chiudi", "Close", [&note] { note.chiudi(); }));
    // What the bar's colour tells.
    const auto heading =
        std::make_shared<UILabel>(CGRectMake(barHeight, 0, size.width - 2 * barHeight, barHeight));
    heading->setAutoresizingMask(fillsWidth);
    heading->setHeading(true);
    bar->addSubview(heading);
    note.intestazione = heading;
    bar->addSubview(rightBarButton(size.width, "ok", "Save", [&note] { note.ok(); }));

    const auto text =
        std::make_shared<UITextView>(CGRectMake(0, barHeight, size.width, size.height - barHeight));
    text->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleHeight);
    text->setTextContainerInset(textMargin);
    text->setFont(UIFont::systemFont(22));
    text->setTextColor(UIColor::white());
    text->setAccessibilityLabel(Bundle::main().localizedString("Note"));
    view.addSubview(text);
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
