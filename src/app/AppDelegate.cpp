#include "AppDelegate.h"
#include "Print.h"
#include "Settings.h"
#include "UserDefaults.h"
#include "ViewController.h"

namespace velmorath {

bool AppDelegate::applicationDidFinishLaunchingWithOptions(
    UIApplication&, const std::map<std::string, std::any>&)
{
    UserDefaults& defaults = UserDefaults::standard();
    if (defaults.boolForKey("HasLaunchedOnce"))
        return true;
    print("primo avvio dell app");
    defaults.setObject(settingsKey, defaultSettings("Red"));
    defaults.setBool("HasLaunchedOnce", true);
    defaults.synchronize();
    return true;
}

std::shared_ptr<ViewController> AppDelegate::list() const
{
    return std::dynamic_pointer_cast<ViewController>(window->rootViewController());
}

bool AppDelegate::applicationOpenDocument(UIApplication&, const Result<std::string>& file)
{
    const auto notes = list();
    return notes && notes->addCopy(file);
}

void AppDelegate::applicationDocumentsChanged(UIApplication&)
{
    if (const auto notes = list())
        notes->takeNews();
}

} // namespace velmorath
