#include "ListTest.h"

namespace velmorath {
namespace {

class EditingTest : public ListTest {
protected:
    CGFloat shownAlpha(std::size_t place) { return row(place).layer().presented(host.clock().now()).opacity; }
};

TEST_F(EditingTest, TheOthersFadeMeanwhile)
{
    start({"1", "2", "3", "4"});
    tapWords(2);
    EXPECT_GT(shownAlpha(0), 0.3);
    host.advance(0.31);
    EXPECT_EQ(shownAlpha(0), 0.3);
    type("three");
    EXPECT_LT(shownAlpha(0), 1);
    host.advance(0.31);
    expectAllInPlace();
    EXPECT_EQ(saved(), (Lines{"1", "2", "three", "4"}));
}

TEST_F(EditingTest, TheRowIsAtTheTopOfWhatIsInSightInAnyWindow)
{
    start(Lines(20, "note"));
    scroll(-90);
    ASSERT_EQ(table().contentOffset().y, 90);
    tap({20, 200});
    EXPECT_EQ(countLines("tableView.contentOffset.y : 90.0"), 1u);
    EXPECT_EQ(countLines("editingCell.frame.origin.y : 240.0"), 1u);
    host.advance(0.5);
    EXPECT_EQ(host.textInput().frame().midY(), 30);
    host.resize({500, 400});
    host.advance(0.1);
    EXPECT_EQ(host.textInput().frame().midY(), 30);
    EXPECT_EQ(host.textInput().frame().size.width, 470);
    EXPECT_EQ(row(0).alpha(), 0.3);
    type("note");
    host.advance(0.5);
    expectAllInPlace();
}

TEST_F(EditingTest, ARowOutOfSightKeepsItsEditorAndThoseThatComeLookLikeTheOthers)
{
    start(Lines(40, "note"));
    tapWords(3);
    host.advance(0.5);
    for (const CGFloat way : {-1200, 1000, -800}) {
        host.wheel({100, 100}, way);
        host.advance(0.5);
        for (const auto& cell : rows()) {
            EXPECT_EQ(cell->transform(), CGAffineTransform::translation(0, -180));
            EXPECT_EQ(cell->alpha(), cell->label->isEditing() ? 1 : 0.3);
        }
    }
    type("far away");
    EXPECT_EQ(saved()[3], "far away");
    host.advance(0.5);
    for (const CGFloat way : {-600, 5000}) {
        host.wheel({100, 100}, way);
        host.advance(0.5);
        expectAllInPlace();
    }
    EXPECT_EQ(shown()[3], "far away");
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
