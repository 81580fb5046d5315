#include "ListTest.h"

namespace velmorath {
namespace {

class LaunchTest : public ListTest {
protected:
    static UserDefaults& defaults() { return UserDefaults::standard(); }
};

TEST_F(LaunchTest, TheTutorialIsOfferedAfterHalfASecondAndOnlyOnce)
{
    launch();
    EXPECT_EQ(host.effects().permissionsAsked(), 1);
    host.advance(0.3);
    EXPECT_FALSE(presented());
    host.advance(0.2);
    EXPECT_TRUE(presented());
    defaults().reset();
    EXPECT_TRUE(defaults().boolForKey("HasLaunchedOnce"));
    EXPECT_EQ(*defaults().dictionary("settaggi"), defaultSettings("Red"));
    EXPECT_EQ(*defaults().object("nuovaNota")->string(), "No");
    EXPECT_EQ(*defaults().object("primoAvvioApp7")->string(), "No");
    relaunch();
    host.advance(1);
    EXPECT_FALSE(presented());
}

TEST_F(LaunchTest, TheSampleNoteReachesTheFileWithTheNextChange)
{
    launch();
    relaunch();
    // It was never saved, and is not made again.
    EXPECT_EQ(notes(), Lines());
    beginPull(70).lift();
    host.advance(1);
    type("Mine");
    relaunch();
    EXPECT_EQ(notes(), (Lines{"Mine"}));
}

TEST_F(LaunchTest, WhereThereAreNotesNoSampleIsAdded)
{
    start({"One"});
    defaults().removeObject("nuovaNota");
    defaults().synchronize();
    relaunch();
    EXPECT_EQ(notes(), (Lines{"One"}));
    EXPECT_FALSE(defaults().object("nuovaNota"));
    swipe(0, -200);
    relaunch();
    EXPECT_EQ(notes(), (Lines{"Hello!"}));
    EXPECT_TRUE(defaults().object("nuovaNota"));
}

TEST_F(LaunchTest, ChosenSettingsAreLeftAlone)
{
    set("theme", "Green");
    set("own", "kept");
    start({"One"});
    relaunch();
    EXPECT_EQ(list().theme, "Green");
    EXPECT_EQ(*list().dizionarioSettaggi.at("own").string(), "kept");
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
