#include "LoadingActivity.h"
#include "EZLoadingActivity.h"
#include "UIApplication.h"

namespace velmorath {

namespace {

using Settings = EZLoadingActivity::Settings;

constexpr CGFloat minimumTextScale = 0.25;
constexpr unsigned staysInTheMiddle = UIViewAutoresizing::flexibleLeftMargin
    | UIViewAutoresizing::flexibleRightMargin | UIViewAutoresizing::flexibleTopMargin
    | UIViewAutoresizing::flexibleBottomMargin;

/// The vertical place of everything in the box: 40 points in the middle.
CGFloat contentTop()
{
    return Settings::ActivityHeight() * 0.5 - 20;
}

} // namespace

LoadingActivity::LoadingActivity(const std::string& text, bool disableUI)
{
    // The width comes first: the height's first value depends on it.
    const CGFloat width = Settings::ActivityWidth();
    setFrame(CGRectMake(0, 0, width, Settings::ActivityHeight()));
    setCenter(EZLoadingActivity::topMostView()->bounds().center());
    setAutoresizingMask(staysInTheMiddle);
    setBackgroundColor(Settings::BackgroundColor());
    setAlpha(1);
    layer().setCornerRadius(8);
    if (Settings::ShadowEnabled())
        addShadow();
    makeContent(text);
    if (disableUI) {
        UIApplication::shared().beginIgnoringInteractionEvents();
        UIDisabled = true;
    }
}

void LoadingActivity::addShadow()
{
    const CGRect box{{0, 0}, frame().size};
    layer().setMasksToBounds(false);
    layer().setShadow(CAShadow{box.insetBy(-3, -3), UIColor::black().withAlpha(0.5), {0, 0}, 5});
}

void LoadingActivity::makeContent(const std::string& text)
{
    activityView = std::make_shared<UIActivityIndicatorView>(CGRectMake(10, contentTop(), 40, 40));
    activityView->setColor(Settings::ActivityColor());
    activityView->startAnimating();

    textLabel = std::make_shared<UILabel>(CGRectMake(60, contentTop(), Settings::ActivityWidth() - 70, 40));
    textLabel->setTextColor(Settings::TextColor());
    textLabel->setFont({Settings::FontName(), 30});
    textLabel->setMinimumScaleFactor(minimumTextScale);
    textLabel->setTextAlignment(CGTextAlignment::center);
    textLabel->setText(text);
}

void LoadingActivity::makeIcon()
{
    icon = std::make_shared<UILabel>(CGRectMake(10, contentTop(), 40, 40));
    icon->setFont({Settings::FontName(), 60});
    icon->setTextAlignment(CGTextAlignment::center);
    // In many fonts the mark is wider than its place, and an ellipsis would tell nothing.
    icon->setMinimumScaleFactor(minimumTextScale);
}

void LoadingActivity::showIn(UIView& view)
{
    addSubview(activityView);
    addSubview(textLabel);
    setAlpha(0);
    view.addSubview(shared_from_this());
    UIView::animate(0.2, 0, [this] { setAlpha(1); });
}

double LoadingActivity::showResult(std::optional<bool> success, bool animated)
{
    if (UIDisabled)
        UIApplication::shared().endIgnoringInteractionEvents();
    const double duration = !success ? 0 : *success ? 0.5 : 1.0;
    makeIcon();
    if (animated)
        textLabel->layer().addTransition({duration});
    if (success) {
        icon->setTextColor(*success ? Settings::SuccessColor() : Settings::FailColor());
        icon->setText(*success ? Settings::SuccessIcon() : Settings::FailIcon());
        textLabel->setText(*success ? Settings::SuccessText() : Settings::FailText());
    }
    addSubview(icon);
    if (animated)
        icon->setAlpha(0);
    activityView->stopAnimating();
    return duration;
}

} // namespace velmorath
