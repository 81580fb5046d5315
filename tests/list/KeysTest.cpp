#include "ListTest.h"
#include "UIApplication.h"

namespace velmorath {
namespace {

class KeysTest : public ListTest {
protected:
    bool press(HostKey key, bool alt = false)
    {
        const bool used = host.press(key, false, alt);
        host.advance(0.7);
        return used;
    }

    /// The row with the ring around it; -1 when there is no ring on a row.
    int marked()
    {
        for (const DrawingCommand& command : host.draw().commands()) {
            const bool isRing =
                command.kind == DrawingCommand::Kind::stroke && command.color == UIColor::white();
            if (isRing && command.rect.size.height == 60)
                return static_cast<int>(command.rect.minY() / 60);
        }
        return -1;
    }
};

TEST_F(KeysTest, TheWholeListIsUsedWithoutAPointer)
{
    start({"One", "Two", "Three"});
    EXPECT_EQ(marked(), -1);
    press(HostKey::tab);
    EXPECT_EQ(marked(), 0);
    press(HostKey::down);
    press(HostKey::space);
    EXPECT_EQ(saved(), (Lines{"One", "x Two", "Three"}));
    press(HostKey::space);
    press(HostKey::edit);
    EXPECT_EQ(marked(), -1) << "the caret shows where keys go";
    EXPECT_FALSE(press(HostKey::remove)) << "keys are the editor's while typing";
    type("Deux");
    host.advance(0.5);
    EXPECT_EQ(saved(), (Lines{"One", "Deux", "Three"}));
    EXPECT_EQ(marked(), 1);

    press(HostKey::down, true);
    EXPECT_EQ(saved(), (Lines{"One", "Three", "Deux"}));
    EXPECT_EQ(marked(), 2);
    EXPECT_TRUE(press(HostKey::down, true)) << "there is no further place";
    press(HostKey::up);
    press(HostKey::remove);
    EXPECT_EQ(saved(), (Lines{"One", "Deux"}));
    EXPECT_EQ(marked(), 1) << "the neighbour takes the focus";

    press(HostKey::insert);
    type("New");
    host.advance(0.5);
    EXPECT_EQ(saved(), (Lines{"New", "One", "Deux"}));
    EXPECT_EQ(marked(), 0);
}

TEST_F(KeysTest, AKeyThatIsHeldDownMovesOnButDeletesOnlyOnce)
{
    start({"One", "Two", "Three"});
    press(HostKey::tab);
    host.client().keyPressed({.key = HostKey::down, .isRepeat = true});
    host.advance(0.7);
    EXPECT_EQ(marked(), 1);
    press(HostKey::remove);
    EXPECT_TRUE(host.client().keyPressed({.key = HostKey::remove, .isRepeat = true}));
    host.advance(0.7);
    EXPECT_EQ(saved(), (Lines{"One", "Three"}));
}

TEST_F(KeysTest, AnInsertionThatComesToNothingLeavesTheKeysWhereTheyWere)
{
    start(Lines{"One", "Two", "Three", "Four"});
    press(HostKey::down);
    press(HostKey::down);
    press(HostKey::down);
    EXPECT_EQ(marked(), 2);
    EXPECT_TRUE(host.press(HostKey::insert, true));
    host.advance(1);
    ASSERT_TRUE(host.textInput().isEditing());
    host.textInput().pressReturn();
    host.advance(1);
    EXPECT_EQ(marked(), 2);
}

TEST_F(KeysTest, TabLeavesTheScreenAndComesBack)
{
    start({"One"});
    EXPECT_TRUE(press(HostKey::tab));
    int presses = 1;
    while (press(HostKey::tab) && presses < 10)
        ++presses;
    EXPECT_EQ(presses, 4) << "the note, three buttons, and out";
    EXPECT_EQ(marked(), -1);
    EXPECT_TRUE(press(HostKey::tab));
    EXPECT_EQ(marked(), 0);
    EXPECT_FALSE(host.press(HostKey::tab, true));
    EXPECT_TRUE(press(HostKey::down)) << "arrows go round";
}

TEST_F(KeysTest, AHiddenRingProtectsItsRow)
{
    start({"One", "Two"});
    tapWords(1);
    type("Two!");
    host.advance(0.5);
    EXPECT_EQ(marked(), -1);
    press(HostKey::remove);
    EXPECT_EQ(saved(), (Lines{"One", "Two!"})) << "the first press only shows what it would delete";
    EXPECT_EQ(marked(), 1);
    press(HostKey::remove);
    EXPECT_EQ(saved(), (Lines{"One"}));

    swipe(0, 60);
    host.advance(0.5);
    press(HostKey::remove);
    EXPECT_EQ(saved(), (Lines{"One"})) << "a finger took the ring away again";
}

TEST_F(KeysTest, LongListsScrollToTheFocusAndScreensGiveItBack)
{
    start(Lines(100, "note"));
    press(HostKey::tab);
    press(HostKey::end);
    EXPECT_EQ(table().contentOffset().y, 100 * 60 - 480);
    EXPECT_EQ(marked(), 7);
    press(HostKey::pageUp);
    EXPECT_EQ(marked(), 0);
    press(HostKey::enter);
    ASSERT_TRUE(presented());
    press(HostKey::escape);
    EXPECT_FALSE(presented());
    EXPECT_EQ(marked(), 0);
    press(HostKey::home);
    EXPECT_EQ(table().contentOffset().y, 0);
}

TEST_F(KeysTest, NoKeyActsOnARowThatNobodySees)
{
    start(Lines(100, "note"));
    press(HostKey::tab);
    for (int row = 0; row < 7; ++row)
        press(HostKey::down);
    host.wheel({100, 100}, -60.0 * 50);
    EXPECT_TRUE(host.press(HostKey::remove));
    host.advance(0.7);
    EXPECT_EQ(notes().size(), 100u) << "it was not to be seen yet where keys go now";
    EXPECT_EQ(table().contentOffset().y, 60 * 50) << "the keys go to what is in sight";
    EXPECT_EQ(marked(), 0);
    press(HostKey::down);
    press(HostKey::space);
    EXPECT_EQ(saved().at(51), "x note");

    host.wheel({100, 100}, 60.0 * 20 - 20);
    host.advance(0.1);
    press(HostKey::space);
    EXPECT_EQ(saved().at(37), "x note") << "of the row below only a third is in sight";
}

} // namespace
} // namespace velmorath
