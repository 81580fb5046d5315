#include "Story.h"
#include "UIApplication.h"

namespace velmorath {
namespace {

class KeysTest : public Story {
protected:
    void press(const std::string& what, HostKeyPress key, double seconds = 0.7)
    {
        then(what, seconds, [&] { m_isUsed = host.client().keyPressed(key); });
        then(m_isUsed ? "used; the ring is around " + ring() : "not used; the ring is around " + ring(), 0);
    }

private:
    /// The row with the ring around it.
    std::string ring()
    {
        for (const DrawingCommand& command : host.draw().commands()) {
            const bool isRing =
                command.kind == DrawingCommand::Kind::stroke && command.color == UIColor::white();
            if (isRing && command.rect.size.height == 60)
                return "row " + std::to_string(static_cast<int>(command.rect.minY() / 60));
        }
        return "no row";
    }

    bool m_isUsed = false;
};

TEST_F(KeysTest, TheWholeListIsUsedWithoutAPointer)
{
    start({"One", "Two", "Three"});
    press("into the list", {HostKey::tab});
    press("down", {HostKey::down});
    press("complete", {HostKey::space});
    press("reopen", {HostKey::space});
    press("edit", {HostKey::edit});
    press("keys are the editor's while typing", {HostKey::remove});
    then("typed", [&] { type("Deux"); });
    press("move down", {HostKey::down, false, true});
    press("there is no further place", {HostKey::down, false, true});
    press("up", {HostKey::up});
    press("delete", {HostKey::remove});
    press("insert", {HostKey::insert});
    then("typed", [&] { type("New"); });
    press("insert below", {HostKey::insert, true});
    then("an insertion that comes to nothing leaves the keys where they were", [&] { type(""); });
}

TEST_F(KeysTest, AKeyThatIsHeldDownMovesOnButDeletesOnlyOnce)
{
    start({"One", "Two", "Three"});
    press("into the list", {HostKey::tab});
    press("held down", {.key = HostKey::down, .isRepeat = true});
    press("delete", {HostKey::remove});
    press("held down", {.key = HostKey::remove, .isRepeat = true});
}

TEST_F(KeysTest, TabLeavesTheScreenAndComesBackAndArrowsGoRound)
{
    start({"One"});
    for (const std::string what : {"the note", "a button", "a button", "a button", "out", "back"})
        press(what, {HostKey::tab});
    press("out at the front", {HostKey::tab, true}, 0);
    press("round", {HostKey::up});
    press("round", {HostKey::down});
}

TEST_F(KeysTest, TheLastNoteLeavesTheKeysToTheEmptyList)
{
    start({"One"});
    press("into the list", {HostKey::tab});
    press("delete", {HostKey::remove});
    EXPECT_EQ(UIApplication::shared().focusSystem().focusedView(), list().tableView.lock());
    press("insert", {HostKey::insert});
}

TEST_F(KeysTest, AHiddenRingProtectsItsRow)
{
    start({"One", "Two"});
    then("edited by a finger", [&] { tapWords(1), type("Two!"); });
    press("only shows what it would delete", {HostKey::remove});
    press("deletes it", {HostKey::remove});
    then("a finger took the ring away again", [&] { swipe(0, 60); });
    press("only shows", {HostKey::remove});
}

TEST_F(KeysTest, LongListsScrollToTheFocusAndScreensGiveItBack)
{
    start(numbers(100));
    press("into the list", {HostKey::tab});
    press("end", {HostKey::end});
    press("a page up", {HostKey::pageUp});
    press("open", {HostKey::enter});
    press("close", {HostKey::escape});
    press("home", {HostKey::home});
}

TEST_F(KeysTest, NoKeyActsOnARowThatNobodySees)
{
    start(numbers(100));
    for (int row = 0; row < 8; ++row)
        host.press(HostKey::down);
    then("it was not to be seen yet where keys go now", [&] {
        host.wheel({100, 100}, -60.0 * 50);
        EXPECT_TRUE(host.press(HostKey::remove));
    });
    press("down", {HostKey::down});
    press("complete", {HostKey::space});
    then("of the row below only a third is in sight", 0.1, [&] { host.wheel({100, 100}, 60.0 * 20 - 20); });
    press("complete", {HostKey::space});
}

} // namespace
} // namespace velmorath
