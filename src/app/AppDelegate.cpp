#include "AppDelegate.h"
#include "Print.h"
#include "Settings.h"
#include "UserDefaults.h"

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

} // namespace velmorath
