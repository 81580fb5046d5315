#include "Main.h"
#include "AppDelegate.h"
#include "Bundle.h"
#include "Class.h"
#include "MainStoryboard.h"
#include "PubblicitaNib.h"
#include "ToDoItem2.h"

namespace velmorath {

int main(int argc, char** argv)
{
    Bundle::main().setInfoDictionary({{"CFBundleDisplayName", "Velmorath"}, {"CFBundleName", "Velmorath"}});
    Class::enter<AppDelegate>("AppDelegate");
    ToDoItem2::enterInUnarchiver();
    enterMainStoryboard();
    enterPubblicitaNib();
    UIApplicationMain(argc, argv, std::nullopt, "AppDelegate");
    return 0;
}

} // namespace velmorath
