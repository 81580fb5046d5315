#include "MainStoryboard.h"
#include "UIButton.h"
#include "UIStoryboard.h"
#include "ViewController.h"
#include "VistaNoteViewController.h"

namespace velmorath {

namespace {

constexpr CGFloat barHeight = 56;
constexpr unsigned fillsWidth = UIViewAutoresizing::flexibleWidth;

/// Pictures have three pixels a point.
constexpr CGFloat pictureScale = 3;

/// A button with a picture, for a bar.
std::shared_ptr<UIButton> pictureButton(
    const CGRect& frame, std::string_view picture, std::function<void()> action)
{
    auto button = std::make_shared<UIButton>(frame);
    button->setImage(UIImage::named(picture, "png", pictureScale));
    button->addTarget([action = std::move(action)](UIControl&) { action(); });
    return button;
}

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
    const auto reorder =
        pictureButton(CGRectMake(0, 0, barHeight, barHeight), "riordina", [&list] { list.settaggi(); });
    const auto information = pictureButton(
        CGRectMake(size.width - barHeight, 0, barHeight, barHeight), "info", [&list] { list.Info(); });
    information->setAutoresizingMask(UIViewAutoresizing::flexibleLeftMargin);
    bar->addSubview(reorder);
    bar->addSubview(information);
    view.addSubview(bar);
}

void fillNote(UIViewController& controller, UIView& view)
{
    auto& note = static_cast<VistaNoteViewController&>(controller);
    const CGSize size = view.bounds().size;
    view.setBackgroundColor(UIColor::black());

    const auto bar = std::make_shared<UIView>(CGRectMake(0, 0, size.width, barHeight));
    bar->setAutoresizingMask(fillsWidth);
    const auto close =
        pictureButton(CGRectMake(0, 0, barHeight, barHeight), "chiudi", [&note] { note.chiudi(); });
    const auto save = pictureButton(
        CGRectMake(size.width - barHeight, 0, barHeight, barHeight), "ok", [&note] { note.ok(); });
    save->setAutoresizingMask(UIViewAutoresizing::flexibleLeftMargin);
    bar->addSubview(close);
    bar->addSubview(save);

    constexpr CGFloat margin = 16;
    const auto text = std::make_shared<UITextView>(CGRectMake(
        margin, barHeight + margin, size.width - 2 * margin, size.height - barHeight - 2 * margin));
    text->setAutoresizingMask(fillsWidth | UIViewAutoresizing::flexibleHeight);
    text->setFont(UIFont::systemFont(22));
    text->setTextColor(UIColor::white());
    view.addSubview(text);
    view.addSubview(bar);
    note.barra = bar;
    note.testo = text;
}

} // namespace

void enterMainStoryboard()
{
    UIStoryboard::enter("Main",
        {
            {"ViewController", [] { return std::make_shared<ViewController>(); }, fillList,
                {{"Info", "Info"}, {"VistaNoteViewController", "VistaNoteViewController"}}},
            {"VistaNoteViewController", [] { return std::make_shared<VistaNoteViewController>(); }, fillNote},
        });
}

} // namespace velmorath
