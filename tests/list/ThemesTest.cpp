#include "ListTest.h"

namespace velmorath {
namespace {

class ThemesTest : public ListTest { };

TEST_F(ThemesTest, EveryThemeAtTheTopAndAtTheEnd)
{
    start({"1", "2", "3", "4"});
    const struct {
        std::string theme;
        CGColor top;
        CGColor end;
    } expected[] = {
        {"Red", {1, 0, 0, 1}, {1, 0.6, 0, 1}},
        {"Green", {0, 0.5, 0, 1}, {0, 0.5, 0.6, 1}},
        {"Violet", {3, 0, 3, 1}, {3, 0.6, 3, 1}},
        {"Blue", {0, 0, 1, 1}, {0, 0.6, 1, 1}},
        {"Yellow", {0.87, 0.76, 0, 1}, {0.87, 0.76, 0.6, 1}},
        {"Mixed", {0, 0.2, 0, 1}, {0.6, 0.2, 0.6, 1}},
        {"Black", {0, 0, 0, 1}, {0.6, 0.6, 0.6, 1}},
        {"red", {0, 0, 0, 1}, {0, 0, 0, 1}},
        {"", {0, 0, 0, 1}, {0, 0, 0, 1}},
    };
    for (const auto& [theme, top, end] : expected) {
        set("theme", theme);
        list().viewWillAppear(false);
        EXPECT_EQ(row(0).backgroundColor(), top) << theme;
        EXPECT_EQ(row(3).backgroundColor(), end) << theme;
    }
}

TEST_F(ThemesTest, TheColourDependsOnThePlaceInTheWholeList)
{
    start(Lines(10, "note"));
    EXPECT_EQ(row(0).backgroundColor(), (CGColor{0, 0, 1, 1}));
    EXPECT_NEAR(row(3).backgroundColor().green, 0.2, 1e-12);
    scroll(-120);
    EXPECT_EQ(row(7).backgroundColor(), (CGColor{0, 0.6, 1, 1}));
    EXPECT_EQ(host.draw().colorAt({200, 470}), (CGColor{0, 0.6, 1, 1}));
}

TEST_F(ThemesTest, TheLinesOfOneRow)
{
    start({"One"}, "Red");
    list().viewWillAppear(false);
    takeLines();
    EXPECT_EQ(row(0).backgroundColor(), (CGColor{1, 0, 0, 1}));
    const Lines lines = takeLines();
    const auto first = std::find(lines.begin(), lines.end(), "tableView(tableView:");
    ASSERT_GE(lines.end() - first, 6);
    EXPECT_EQ(Lines(first, first + 6),
        (Lines{"tableView(tableView:", "😝😝😝😝😝😝   colorForIndex: 0", "val : nan", "----- val : nan",
            "❤️❤️❤️❤️❤️❤️ il valore è nan", "---- 😝 😝 😝 😝 rosso val : 0.0"}));

    start({});
    list().arrayNote.clear();
    EXPECT_EQ(list().colorForIndex(0), (CGColor{1, -0.0, 0, 1}));
    EXPECT_EQ(takeLines("----- val"), (Lines{"----- val : -0.0"}));
}

} // namespace
} // namespace velmorath
