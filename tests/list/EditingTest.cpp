#include "ListTest.h"

namespace velmorath {
namespace {

class EditingTest : public ListTest {
protected:
    CGFloat shownAlpha(std::size_t place) { return row(place).layer().presented(host.clock().now()).opacity; }
};

TEST_F(EditingTest, TheRowGoesToTheTopAndTheOthersFade)
{
    start({"1", "2", "3", "4"});
    takeFelt();
    tapWords(2);
    EXPECT_EQ(takeFelt(), (Lines{"vanti.mp3", "vibration"}));
    Lines lines = takeLines();
    const auto first = std::find(lines.begin(), lines.end(), "textFieldShouldBeginEditing");
    EXPECT_EQ(Lines(first, lines.end()),
        (Lines{"textFieldShouldBeginEditing", "textFieldDidBeginEditing",
            "👍👍👍👍👍👍👍👍👍👍👍👍 ùùùùùùùùùùùùùùùùùùùùùùùùùùùùù cellDidBeginEditing(editingCell:", "play SUONO",
            "tableView.contentOffset.y : 0.0", "editingCell.frame.origin.y : 120.0"}));
    EXPECT_GT(shownAlpha(0), 0.3);
    host.advance(0.31);
    EXPECT_EQ(shownAlpha(0), 0.3);

    type("three");
    EXPECT_FALSE(list().tastieraAttiva);
    EXPECT_LT(shownAlpha(0), 1);
    host.advance(0.31);
    for (std::size_t place = 0; place < 4; ++place) {
        EXPECT_EQ(row(place).frame(), CGRectMake(0, place * 60.0, 320, 60));
        EXPECT_EQ(shownAlpha(place), 1);
    }
    EXPECT_EQ(saved(), (Lines{"1", "2", "three", "4"}));
}

TEST_F(EditingTest, InAScrolledListTheRowGoesToTheTopOfWhatIsInSight)
{
    Lines many(20, "note");
    start(many);
    scroll(-90);
    ASSERT_EQ(table().contentOffset().y, 90);
    tap({20, 200});
    EXPECT_EQ(countLines("tableView.contentOffset.y : 90.0"), 1u);
    EXPECT_EQ(countLines("editingCell.frame.origin.y : 240.0"), 1u);
    EXPECT_EQ(row(0).transform(), CGAffineTransform::translation(0, -150));
    host.advance(0.4);
    EXPECT_EQ(host.textInput().frame().midY(), 30);
}

TEST_F(EditingTest, TheRowStaysAtTheTopWhenTheScreenChanges)
{
    start(Lines(12, "note"));
    tapWords(3);
    host.advance(0.5);
    host.resize({500, 400});
    host.advance(0.1);
    EXPECT_EQ(host.textInput().frame().midY(), 30);
    EXPECT_EQ(host.textInput().frame().size.width, 470);
    EXPECT_EQ(row(0).alpha(), 0.3);
    type("note");
    host.advance(0.5);
    EXPECT_EQ(row(3).frame(), CGRectMake(0, 180, 500, 60));
}

TEST_F(EditingTest, AnEditedRowThatScrollsOutOfSightKeepsItsEditor)
{
    start(Lines(40, "note"));
    tapWords(0);
    const auto edited = rows()[0];
    host.advance(0.5);
    host.wheel({100, 100}, -1200);
    host.advance(0.1);
    EXPECT_TRUE(host.textInput().isEditing());
    EXPECT_EQ(edited->superview(), &table());
    type("far away");
    EXPECT_EQ(saved()[0], "far away");
    host.wheel({100, 100}, 1200);
    host.advance(0.5);
    EXPECT_EQ(shown()[0], "far away");
    for (std::size_t place = 0; place < 8; ++place) {
        EXPECT_EQ(row(place).frame(), CGRectMake(0, place * 60.0, 320, 60));
        EXPECT_EQ(row(place).alpha(), 1);
    }
}

TEST_F(EditingTest, QuittingCommitsWhatWasTyped)
{
    start({"One"});
    tapWords(0);
    host.textInput().replaceText("Uno");
    relaunch();
    EXPECT_EQ(notes(), (Lines{"Uno"}));
}

} // namespace
} // namespace velmorath
