#include "ListTest.h"
#include "UIAlertController.h"

namespace velmorath {
namespace {

class LaunchTest : public ListTest {
protected:
    static UserDefaults& defaults() { return UserDefaults::standard(); }
    UIAlertController* dialog() const { return dynamic_cast<UIAlertController*>(presented().get()); }
    std::string settingsLine(const std::string& theme) const
    {
        return "dizionarioSettaggi : {\n    appIconBadge = true;\n    soundEffect = true;\n    theme = "
            + theme + ";\n    vibration = true;\n}";
    }
};

TEST_F(LaunchTest, TheFirstTime)
{
    launch();
    EXPECT_EQ(notes(), (Lines{"Hello!"}));
    EXPECT_EQ(shown(), (Lines{"Hello!"}));
    EXPECT_EQ(saved(), (Lines{"no file"}));
    EXPECT_EQ(badge(), 1);
    ASSERT_EQ(host.effects().permissionsAsked().size(), 1u);
    const auto& asked = host.effects().permissionsAsked().front();
    EXPECT_TRUE(asked.badge && asked.sound && asked.alert);

    Lines lines = takeLines();
    ASSERT_GE(lines.size(), 7u);
    EXPECT_TRUE(lines[3].starts_with("error : ")) << lines[3];
    lines[3] = "error";
    lines.resize(7);
    EXPECT_EQ(lines,
        (Lines{"primo avvio dell app", "☢️☢️☢️☢️☢️☢️☢️ mostroPubblicità",
            "è il primo avvio quindi devo mandare il tutorial", "error",
            "è il primo avvio quindi aggiungo una nota di prova", "cè qualcosa", settingsLine("Red")}));

    defaults().reset();
    EXPECT_TRUE(defaults().boolForKey("HasLaunchedOnce"));
    ASSERT_TRUE(defaults().dictionary("settaggi"));
    EXPECT_EQ(*defaults().dictionary("settaggi"), defaultSettings("Red"));
    ASSERT_TRUE(defaults().object("nuovaNota") && defaults().object("primoAvvioApp7"));
    EXPECT_EQ(*defaults().object("nuovaNota")->string(), "No");
    EXPECT_EQ(*defaults().object("primoAvvioApp7")->string(), "No");
}

TEST_F(LaunchTest, TheTutorialIsOfferedAfterHalfASecondAndOnlyOnce)
{
    launch();
    host.advance(0.3);
    EXPECT_FALSE(presented());
    host.advance(0.2);
    ASSERT_TRUE(dialog());
    EXPECT_EQ(dialog()->title(), "Watch tutorial");
    ASSERT_EQ(dialog()->actions().size(), 2u);
    EXPECT_EQ(dialog()->actions()[0].title, "No");
    EXPECT_EQ(dialog()->actions()[0].style, UIAlertActionStyle::destructive);
    EXPECT_EQ(dialog()->actions()[1].title, "Yes");
    EXPECT_EQ(dialog()->actions()[1].style, UIAlertActionStyle::standard);

    relaunch();
    host.advance(1);
    EXPECT_FALSE(presented());
    EXPECT_EQ(countLines("primo avvio dell app"), 0u);
}

TEST_F(LaunchTest, YesShowsTheTutorialAndNoDoesNot)
{
    for (const std::string answer : {"No", "Yes"}) {
        UserDefaults::standard().removeObject("primoAvvioApp7");
        launch();
        host.advance(1);
        const DrawingRecorder drawn = host.draw();
        ASSERT_TRUE(drawn.text(answer));
        takeLines();
        tap(drawn.text(answer)->rect.center());
        EXPECT_EQ(countLines("YES"), 0u);
        host.advance(1);
        EXPECT_EQ(takeLines("YES").size(), answer == "Yes" ? 1u : 0u);
    }
}

TEST_F(LaunchTest, TheDialogTakesTheFingersAway)
{
    launch();
    Finger finger = beginPull(80);
    host.advance(0.5);
    ASSERT_TRUE(dialog());
    EXPECT_EQ(table().contentOffset().y, 0);
    finger.moveBy({0, 50});
    finger.lift();
    EXPECT_EQ(notes(), (Lines{"Hello!"}));
}

TEST_F(LaunchTest, QuittingBeforeTheOfferIsNotAskedAgain)
{
    launch();
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

TEST_F(LaunchTest, ChosenSettingsAreLeftAloneAndMissingOnesAreBlue)
{
    set("theme", "Green");
    set("own", "kept");
    start({"One"});
    relaunch();
    EXPECT_EQ(list().theme, "Green");
    EXPECT_EQ(*list().dizionarioSettaggi.at("own").string(), "kept");

    defaults().removeObject("settaggi");
    defaults().synchronize();
    relaunch();
    EXPECT_EQ(list().theme, "Blue");
    EXPECT_EQ(countLines("non cè qualcosa"), 1u);
    EXPECT_EQ(countLines("devo inizializzare il dizionario"), 1u);
    defaults().reset();
    EXPECT_EQ(*defaults().dictionary("settaggi"), defaultSettings("Blue"));
}

TEST_F(LaunchTest, TheBadgeIsCountedOnlyWhenItIsWanted)
{
    start({"One", "x Two", "Three"});
    EXPECT_EQ(badge(), 2);
    set("appIconBadge", "false");
    swipe(0, -200);
    host.advance(1);
    list().viewWillAppear(false);
    EXPECT_EQ(badge(), 1);
    swipe(1, 200);
    EXPECT_EQ(badge(), 1);
    set("appIconBadge", "true");
    list().viewWillAppear(false);
    EXPECT_EQ(badge(), 0);
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
}

TEST_F(LaunchDeathTest, AListWithoutItsTable)
{
    start({"One"});
    list().tableView.reset();
    EXPECT_DEATH(list().viewWillAppear(false), "table is not connected");
}

} // namespace
} // namespace velmorath
