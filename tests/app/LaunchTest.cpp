#include "Story.h"

namespace velmorath {
namespace {

class LaunchTest : public Story {
protected:
    static UserDefaults& defaults() { return UserDefaults::standard(); }
};

TEST_F(LaunchTest, WhereThereAreNotesNoSampleIsAddedAndChosenSettingsAreLeftAlone)
{
    set("theme", "Green");
    set("own", "kept");
    start({"One"});
    tellLines();
    defaults().removeObject("nuovaNota");
    defaults().synchronize();
    then("another start", [&] { relaunch(); });
    then("the last note goes", [&] { swipe(0, -200); });
    then("another start", [&] { relaunch(); });
}

using LaunchDeathTest = LaunchTest;

TEST_F(LaunchDeathTest, SettingsThatCannotBe)
{
    start({"One"});
    SettingsDictionary settings = defaultSettings("Red");
    settings.erase("theme");
    defaults().setObject("settaggi", settings);
    EXPECT_DEATH(list().viewWillAppear(false), "lack a string under theme");
    settings.insert_or_assign("theme", 7);
    defaults().setObject("settaggi", settings);
    EXPECT_DEATH(list().viewWillAppear(false), "lack a string under theme");
    defaults().setObject("settaggi", "Red");
    EXPECT_DEATH(list().viewWillAppear(false), "not a dictionary");
    defaults().setObject("settaggi", defaultSettings("Red"));
    list().tableView.reset();
    EXPECT_DEATH(list().viewWillAppear(false), "table is not connected");
}

} // namespace
} // namespace velmorath
