#include "Print.h"
#include "SettingsTest.h"

namespace velmorath {
namespace {

class Info3Test : public SettingsTest {
protected:
    void openWithTheme(const std::string& theme)
    {
        start({"One"}, theme);
        openThemes();
        takeLines();
        takeFelt();
    }
};

TEST_F(Info3Test, ShowsTheThemes)
{
    openWithTheme("Yellow");
    EXPECT_EQ(titles(), (Lines{"Red", "Green", "Violet", "Blue", "Yellow", "Mixed", "Black"}));
    EXPECT_EQ(checkmarks(), (std::vector<bool>{false, false, false, false, true, false, false}));
    EXPECT_TRUE(host.draw().text("Select theme"));
    EXPECT_FALSE(screen().tabella.lock()->isScrollEnabled());
    const std::vector<CGColor> colors = tints();
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_NEAR(colors[i].blue, i * 0.1, 1e-12);
        EXPECT_EQ(colors[i].red, 0.87);
    }
}

TEST_F(Info3Test, AThemeIsStoredAtOnceAndShownAfterTheTap)
{
    openWithTheme("Red");
    const std::string before = "dizionarioSettaggi : " + description(defaultSettings("Red"));
    Finger finger(host, {160, 56 + 5 * 60 + 30});
    finger.lift();
    EXPECT_EQ(takeLines(), (Lines{"You selected cell #5!", "salvo il nuovo colore", "1", before, "2"}));
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
    EXPECT_EQ(stored(), defaultSettings("Mixed"));
    EXPECT_EQ(cells().front()->backgroundColor(), UIColor::red());
    EXPECT_TRUE(checkmarks()[0]);

    host.advance(0.1);
    EXPECT_EQ(checkmarks(), (std::vector<bool>{false, false, false, false, false, true, false}));
    EXPECT_EQ(tints().front(), (CGColor{0.0, 0.2, 0.0, 1.0}));
    EXPECT_EQ(countLines("colorForIndex:"), 7u);
}

TEST_F(Info3Test, TheChosenThemeCanBeChosenAgain)
{
    openWithTheme("Green");
    const std::vector<CGColor> colors = tints();
    tapRow(1);
    EXPECT_EQ(stored(), defaultSettings("Green"));
    EXPECT_EQ(tints(), colors);
    EXPECT_EQ(checkmarks(), (std::vector<bool>{false, true, false, false, false, false, false}));
}

TEST_F(Info3Test, AThemeThatIsNotAmongThemIsBlack)
{
    openWithTheme("Green ");
    EXPECT_EQ(checkmarks(), std::vector<bool>(7, false));
    EXPECT_EQ(tints(), std::vector<CGColor>(7, UIColor::black()));
}

TEST_F(Info3Test, AReloadThatComesAfterTheScreenHasGoneDoesNothing)
{
    openWithTheme("Red");
    Finger(host, {160, 56 + 30}).lift();
    host.quit();
    start({"One"});
    host.advance(0.1);
    EXPECT_EQ(list().theme, "Red");
}

TEST_F(Info3Test, ImpossibleStatesEndTheProgram)
{
    openWithTheme("Red");
    UITableView& themes = *screen().tabella.lock();
    EXPECT_DEATH(screen().tableViewDidSelectRowAtIndexPath(themes, {0, 7}), "no row 7");
    EXPECT_DEATH(screen().tableViewDidSelectRowAtIndexPath(themes, {0, -1}), "no row -1");
}

} // namespace
} // namespace velmorath
