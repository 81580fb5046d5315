#include "ReplaceFile.h"
#include "SettingsTest.h"

namespace velmorath {
namespace {

class Info2Test : public SettingsTest {
protected:
    void openWithNotes(const Lines& notes)
    {
        start(notes, "Red");
        openOptions();
        takeLines();
        takeFelt();
    }
};

TEST_F(Info2Test, ShowsTheOptions)
{
    start({"One"}, "Mixed");
    set("vibration", "false");
    set("soundEffect", "yes");
    openOptions();
    ASSERT_TRUE(isOnTop<Info2>());
    EXPECT_EQ(titles(), (Lines{"Icon badge", "Sound effect", "Vibration", "Theme    :    Mixed"}));
    EXPECT_EQ(checkmarks(), (std::vector<bool>{true, false, false, false}));
    EXPECT_TRUE(host.draw().text("Settings"));
    EXPECT_TRUE(host.draw().text("\u2713"));
    EXPECT_FALSE(screen().tabella.lock()->isScrollEnabled());
    const std::vector<CGColor> colors = tints();
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(colors[i].red, i * 0.2, 1e-12);
}

TEST_F(Info2Test, ASwitchIsStoredAtOnce)
{
    openWithNotes({"One"});
    const int written = host.files().replacements();
    tapRow(2);
    EXPECT_EQ(takeLines(), (Lines{"didSelectRowAtIndexPath  You selected cell #2!", "isSelected : true"}));
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
    EXPECT_EQ(checkmarks(), (std::vector<bool>{true, true, false, false}));
    SettingsDictionary expected = defaultSettings("Red");
    expected.insert_or_assign("vibration", "false");
    EXPECT_EQ(stored(), expected);
    tapRow(2);
    EXPECT_EQ(takeLines(), (Lines{"didSelectRowAtIndexPath  You selected cell #2!", "isSelected : false"}));
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3"}));
    EXPECT_EQ(stored(), defaultSettings("Red"));
    EXPECT_EQ(host.files().replacements(), written + 2);
}

TEST_F(Info2Test, SwitchingTheSoundSoundsAsItWasBefore)
{
    openWithNotes({"One"});
    tapRow(1);
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
    tapRow(1);
    EXPECT_EQ(takeFelt(), (Lines{"vibration"}));
    tapRow(1);
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
}

TEST_F(Info2Test, TheBadgeFollowsItsSwitch)
{
    openWithNotes({"One", "x Two", "Three"});
    ASSERT_EQ(badge(), 2);
    tapRow(0);
    EXPECT_EQ(takeLines(),
        (Lines{"didSelectRowAtIndexPath  You selected cell #0!", "isSelected : true", "isSelected"}));
    EXPECT_EQ(badge(), 0);
    EXPECT_EQ(storedOption("appIconBadge"), "false");
    tapRow(0);
    EXPECT_EQ(takeLines(),
        (Lines{"didSelectRowAtIndexPath  You selected cell #0!", "isSelected : false", "else",
            "aggiungo valore al badge", "numeroBadge : 1", "aggiungo valore al badge", "numeroBadge : 2"}));
    EXPECT_EQ(badge(), 2);
    EXPECT_EQ(storedOption("appIconBadge"), "true");
}

TEST_F(Info2Test, TheBadgeCountsWhatIsInTheFile)
{
    openWithNotes({"One"});
    tapRow(0);
    std::remove(archivePath().c_str());
    tapRow(0);
    EXPECT_EQ(badge(), 0);
    tapRow(0);
    ASSERT_FALSE(replaceFile(host.files(), archivePath(), "neither notes nor anything else"));
    tapRow(0);
    EXPECT_EQ(badge(), 0);
}

TEST_F(Info2Test, ATapTurnsRoundWhatTheRowShows)
{
    openWithNotes({"One"});
    set("vibration", "false");
    tapRow(2);
    EXPECT_EQ(storedOption("vibration"), "false");
    tapRow(2);
    EXPECT_EQ(storedOption("vibration"), "true");
}

TEST_F(Info2Test, EntriesThatItDoesNotKnowAreKept)
{
    start({"One"});
    set("fromTomorrow", "42");
    openOptions();
    tapRow(1);
    EXPECT_EQ(storedOption("fromTomorrow"), "42");
    EXPECT_EQ(stored().size(), 5u);
}

TEST_F(Info2Test, TheRowBeforeIsDeselectedFirst)
{
    openWithNotes({"One"});
    tapRow(1);
    takeLines();
    tapRow(2);
    EXPECT_EQ(takeLines(),
        (Lines{"didDeselectRowAtIndexPath", "didSelectRowAtIndexPath  You selected cell #2!",
            "isSelected : true"}));
}

TEST_F(Info2Test, TheThemeRowOpensTheThemesAndWritesNothing)
{
    openWithNotes({"One"});
    const int written = host.files().replacements();
    tapRow(3);
    Lines lines = takeLines();
    ASSERT_GE(lines.size(), 2u);
    lines.resize(2);
    EXPECT_EQ(lines, (Lines{"didSelectRowAtIndexPath  You selected cell #3!", "carico vista Info3"}));
    EXPECT_TRUE(isOnTop<Info3>());
    EXPECT_EQ(host.files().replacements(), written);
}

TEST_F(Info2Test, ImpossibleStatesEndTheProgram)
{
    start({"One"});
    openInformation();
    storeWithout("appIconBadge");
    EXPECT_DEATH(tapRow(3), "lack a string under appIconBadge");
    set("appIconBadge", "true");
    tapRow(3);
    auto& options = static_cast<Info2&>(screen());
    options.titolo.reset();
    EXPECT_DEATH(options.viewDidLayoutSubviews(), "title label is not connected");
}

TEST_F(Info2Test, FromTheListToTheThemesAndBack)
{
    start({"One", "x Two", "Three"}, "Blue");
    openThemes();
    ASSERT_TRUE(isOnTop<Info3>());
    tapRow(5);
    close();
    ASSERT_TRUE(isOnTop<Info2>());
    EXPECT_EQ(titles().back(), "Theme    :    Mixed");
    EXPECT_EQ(tints().front(), (CGColor{0.0, 0.2, 0.0, 1.0}));
    tapRow(1);
    tapRow(0);
    ASSERT_EQ(badge(), 0);
    close();
    ASSERT_TRUE(isOnTop<Info>());
    takeFelt();
    tapRow(4);
    EXPECT_EQ(takeFelt(), (Lines{"vibration"}));
    close();
    EXPECT_EQ(list().theme, "Mixed");
    EXPECT_EQ(list().appIconBadge, "false");
    EXPECT_EQ(row(1).backgroundColor(), (CGColor{0.3, 0.2, 0.3, 1.0}));
    EXPECT_EQ(badge(), 0);

    openOptions();
    host.effects().setBadge(17);
    tapRow(0);
    EXPECT_EQ(badge(), 2);
    set("appIconBadge", "true");
    host.effects().setBadge(17);
    close();
    close();
    EXPECT_EQ(badge(), 2);
}

} // namespace
} // namespace velmorath
