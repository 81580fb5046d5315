#include "EZLoadingActivity.h"
#include "UIApplication.h"
#include "UIDevice.h"
#include "UIScreen.h"

namespace velmorath {

namespace {

CGFloat screenWidthHeldUpright()
{
    const CGSize size = UIScreen::main().bounds().size;
    const bool isUpright = UIApplication::shared().statusBarOrientation() == UIInterfaceOrientation::portrait;
    return isUpright ? size.width : size.height;
}

} // namespace

CGColor& EZLoadingActivity::Settings::BackgroundColor()
{
    static CGColor s_color{227 / 255.0, 232 / 255.0, 235 / 255.0, 1};
    return s_color;
}

CGColor& EZLoadingActivity::Settings::ActivityColor()
{
    static CGColor s_color = UIColor::black();
    return s_color;
}

CGColor& EZLoadingActivity::Settings::TextColor()
{
    static CGColor s_color = CGColor::gray(80 / 255.0);
    return s_color;
}

std::string& EZLoadingActivity::Settings::FontName()
{
    static std::string s_name = "HelveticaNeue-Light";
    return s_name;
}

std::string& EZLoadingActivity::Settings::SuccessIcon()
{
    // A check mark, and the request to draw it as text.
    static std::string s_icon = "\u2714\uFE0E";
    return s_icon;
}

std::string& EZLoadingActivity::Settings::FailIcon()
{
    static std::string s_icon = "\u2718";
    return s_icon;
}

std::string& EZLoadingActivity::Settings::SuccessText()
{
    static std::string s_text = "Success";
    return s_text;
}

std::string& EZLoadingActivity::Settings::FailText()
{
    static std::string s_text = "Failure";
    return s_text;
}

CGColor& EZLoadingActivity::Settings::SuccessColor()
{
    static CGColor s_color{68 / 255.0, 118 / 255.0, 4 / 255.0, 1};
    return s_color;
}

CGColor& EZLoadingActivity::Settings::FailColor()
{
    static CGColor s_color{255 / 255.0, 75 / 255.0, 56 / 255.0, 1};
    return s_color;
}

CGFloat& EZLoadingActivity::Settings::ActivityWidth()
{
    static CGFloat s_width = screenWidthHeldUpright() / WidthDivision();
    return s_width;
}

CGFloat& EZLoadingActivity::Settings::ActivityHeight()
{
    static CGFloat s_height = ActivityWidth() / 3;
    return s_height;
}

CGFloat EZLoadingActivity::Settings::WidthDivision()
{
    return UIDevice::current().userInterfaceIdiom() == UIUserInterfaceIdiom::pad ? 3.5 : 1.6;
}

bool& EZLoadingActivity::Settings::ShadowEnabled()
{
    static bool s_enabled = true;
    return s_enabled;
}

bool& EZLoadingActivity::Settings::LoadOverApplicationWindow()
{
    static bool s_loads = false;
    return s_loads;
}

bool& EZLoadingActivity::Settings::DarkensBackground()
{
    static bool s_darkens = false;
    return s_darkens;
}

} // namespace velmorath
