#include "Story.h"
#include <set>

namespace velmorath {
namespace {

class UITableViewTest : public Story {
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
    EXPECT_EQ(rows().back()->toDoItem()->text, "99999");
    host.wheel({100, 100}, 30);
    host.advance(0.1);
    takeLines();
    for (const auto& [way, newRows] : {std::pair{20.0, 0u}, {120.0, 2u}}) {
        host.wheel({100, 100}, way);
        host.advance(0.1);
        EXPECT_EQ(takeLines("tableView(tableView:").size(), newRows) << way;
    }
}

TEST_F(UITableViewTest, RowsInSightAreNeverStaleAndShowNothingOfTheirPast)
{
    start(numbers(40));
    then("scrolled", [&] { scroll(-90); });
    then("the wheel after a swipe that was taken away", [&] {
        beginSwipe(1, 100).cancel();
        host.wheel({100, 100}, -600);
    });
    auto& all = list().arrayNote;
    for (const auto& left :
        {Notes(all.begin() + 5, all.end()), Notes(all.begin(), all.begin() + 2), Notes()}) {
        all = left;
        then(std::to_string(left.size()) + " are left", [&] { table().reloadData(); });
    }
    EXPECT_EQ(rowViews(), 0u);
}

TEST_F(UITableViewTest, ANewSizeLaysTheRowsOutAtOnce)
{
    start(numbers(20));
    scroll(-480);
    then("wider", 1.0 / 30, [&] { host.resize({500, 776}); });
    EXPECT_EQ(row(0).label->frame(), CGRectMake(15, 0, 485, 60));
    then("higher", 1.0 / 30, [&] { host.resize({320, 2000}); });
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
