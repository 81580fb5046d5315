#include "ListTest.h"
#include <set>

namespace velmorath {
namespace {

class UITableViewTest : public ListTest {
protected:
    std::size_t rowViews() const
    {
        const auto& views = table().subviews();
        return static_cast<std::size_t>(std::count_if(views.begin(), views.end(),
            [](const auto& view) { return dynamic_cast<TableViewCell*>(view.get()) != nullptr; }));
    }
};

TEST_F(UITableViewTest, AHundredThousandNotesNeedAHandfulOfRows)
{
    start(numbers(100000));
    std::set<TableViewCell*> seen;
    std::size_t most = 0;
    for (int i = 0; i < 200; ++i) {
        host.wheel({100, 100}, i < 100 ? -170 : -60000);
        host.advance(1.0 / 60);
        most = std::max(most, rowViews());
        for (const auto& cell : rows())
            seen.insert(cell.get());
    }
    EXPECT_LE(most, 9u);
    EXPECT_LE(seen.size(), 18u);
    EXPECT_EQ(shown().back(), "99999");
    host.wheel({100, 100}, 30);
    host.advance(0.1);
    takeLines();
    for (const auto& [way, newRows] : {std::pair{20.0, 0u}, {120.0, 2u}}) {
        host.wheel({100, 100}, way);
        host.advance(0.1);
        EXPECT_EQ(takeLines("tableView(tableView:").size(), newRows) << way;
    }
}

TEST_F(UITableViewTest, VisibleRowsAreNeverStale)
{
    start(numbers(20));
    scroll(-90);
    EXPECT_EQ(shown(), (Lines{"1", "2", "3", "4", "5", "6", "7", "8", "9"}));
    list().arrayNote.erase(list().arrayNote.begin(), list().arrayNote.begin() + 5);
    table().reloadData();
    EXPECT_EQ(shown(), (Lines{"6", "7", "8", "9", "10", "11", "12", "13", "14"}));
    list().arrayNote.resize(2);
    table().reloadData();
    EXPECT_EQ(shown(), (Lines{"5", "6"}));
    EXPECT_EQ(table().contentOffset().y, 0);
    list().arrayNote.clear();
    table().reloadData();
    EXPECT_EQ(shown(), Lines());
    host.advance(0.1);
    EXPECT_EQ(rowViews(), 0u);
}

TEST_F(UITableViewTest, ARowUsedAgainShowsNothingOfItsPast)
{
    start(numbers(40));
    beginSwipe(1, 100).cancel();
    host.wheel({100, 100}, -600);
    host.advance(0.1);
    for (std::size_t place = 0; place < 8; ++place)
        EXPECT_EQ(row(place).frame(), CGRectMake(0, 600 + place * 60.0, 320, 60));
}

TEST_F(UITableViewTest, ANewSizeLaysTheRowsOutAtOnce)
{
    start(numbers(20));
    scroll(-480);
    host.resize({500, 776});
    host.advance(1.0 / 30);
    ASSERT_EQ(rows().size(), 12u);
    EXPECT_EQ(row(0).frame(), CGRectMake(0, 480, 500, 60));
    EXPECT_EQ(row(0).label->frame(), CGRectMake(15, 0, 485, 60));
    host.resize({320, 2000});
    host.advance(1.0 / 30);
    EXPECT_EQ(table().contentOffset().y, 0);
    EXPECT_EQ(rows().size(), 20u);
}

using UITableViewDeathTest = UITableViewTest;

TEST_F(UITableViewDeathTest, ADeletionMustFitTheData)
{
    start({"One", "Two"});
    EXPECT_DEATH(
        {
            table().beginUpdates();
            table().deleteRows({{0, 0}}, UITableViewRowAnimation::fade);
            table().endUpdates();
        },
        "does not fit");
    EXPECT_DEATH((void)table().dequeueReusableCell("other", {0, 0}), "No row class is registered");
}

} // namespace
} // namespace velmorath
