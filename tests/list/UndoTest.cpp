#include "ListTest.h"
#include "ScreenReader.h"
#include "UndoManager.h"

namespace velmorath {
namespace {

class UndoTest : public ListTest {
protected:
    bool press(HostKey key)
    {
        const bool isUsed = host.press(key);
        host.advance(1);
        return isUsed;
    }
    void edit(std::size_t place, const std::string& text)
    {
        tapWords(place);
        type(text);
        host.advance(1);
    }
    void tapUndo() { tap({84, host.screen().size().height - 28}); }
    const Lines& felt() { return host.effects().felt(); }

    ScreenReader reader{host};
};

TEST_F(UndoTest, EachChangeIsTakenBackAndDoneAgain)
{
    const Lines first{"One", "x Two", "Three", "Four"};
    const auto deletes = [this] { swipe(0, -200); };
    const auto reopens = [this] { swipe(1, 200); };
    const auto edits = [this] { edit(2, "3"); };
    const auto empties = [this] { edit(2, ""); };
    const auto adds = [this] {
        beginPull(70).lift();
        type("New");
    };
    const auto moves = [this] {
        host.press(HostKey::down);
        host.press(HostKey::down, false, true);
    };
    const auto deletesInFull = [this] {
        tapBesideWords(3);
        host.advance(0.5);
        tap({100, 300});
        host.textInput().replaceText("");
        tap({292, 28});
    };
    using Change = std::function<void()>;
    for (const auto& [change, name, after] :
        {std::tuple<Change, std::string, Lines>{deletes, "Delete One", {"x Two", "Three", "Four"}},
            {reopens, "Reopen Two", {"One", "Two", "Three", "Four"}},
            {edits, "Edit 3", {"One", "x Two", "3", "Four"}},
            {empties, "Delete Three", {"One", "x Two", "Four"}},
            {adds, "Add note New", {"New", "One", "x Two", "Three", "Four"}},
            {moves, "Move One", {"x Two", "One", "Three", "Four"}},
            {deletesInFull, "Delete Four", {"One", "x Two", "Three"}}}) {
        host.quit();
        start(first);
        const auto notes = list().arrayNote;
        for (const auto& note : notes)
            note->data = "Nov 1, 2026";
        const long long before = badge();
        change();
        host.advance(1);
        const long long badgeAfter = badge();
        ASSERT_EQ(saved(), after) << name;
        takeLines();
        host.effects().clearFelt();
        for (int turn = 0; turn < 2; ++turn) {
            EXPECT_TRUE(press(HostKey::undo)) << name;
            EXPECT_EQ(saved(), first) << name;
            EXPECT_EQ(list().arrayNote, notes) << "the same records";
            EXPECT_EQ(notes[2]->data, "Nov 1, 2026") << "with their dates";
            EXPECT_EQ(badge(), before) << name;
            EXPECT_FALSE(press(HostKey::undo)) << "there is no more";
            EXPECT_TRUE(press(HostKey::redo)) << name;
            EXPECT_EQ(saved(), after) << name;
            EXPECT_EQ(badge(), badgeAfter) << name;
        }
        EXPECT_EQ(felt(), Lines{}) << "no sounds";
        EXPECT_EQ(countLines("toDoItemDeleted:") + countLines("moveRowAtIndexPath"), 0u);
        EXPECT_EQ(host.effects().announced().back(), "Redone, " + name);
    }
}

TEST_F(UndoTest, TheButtonIsThereForWhatThereIs)
{
    start({"One", "Two"});
    const auto button = [this] {
        for (const Lines shown = reader.everything(); const std::string& line : shown) {
            if (line.find("do: ") != std::string::npos)
                return line;
        }
        return std::string();
    };
    EXPECT_EQ(button(), "");
    tapUndo();
    swipe(0, 200);
    host.advance(1);
    swipe(1, -200);
    host.advance(1);
    EXPECT_EQ(button(), "  button Undo: Delete Two");
    tapUndo();
    host.advance(1);
    EXPECT_EQ(button(), "  button Undo: Complete One (Redo: Delete Two)");
    Finger finger(host, {84, host.screen().size().height - 28});
    host.advance(0.6);
    EXPECT_EQ(saved(), (Lines{"x One"})) << "held";
    finger.lift();
    EXPECT_EQ(saved(), (Lines{"x One"}));
    tapUndo();
    tapUndo();
    EXPECT_EQ(saved(), (Lines{"One", "Two"}));
    EXPECT_EQ(button(), "  button Redo: Complete One");
    EXPECT_TRUE(reader.press("Redo: Complete One"));
    EXPECT_EQ(saved(), (Lines{"x One", "Two"}));
    tapUndo();
    host.advance(1);
    swipe(0, -200);
    host.advance(1);
    EXPECT_EQ(button(), "  button Undo: Delete One") << "what was taken back is over";
}

TEST_F(UndoTest, NotWhileATextIsTypedOrFingersAreDown)
{
    start({"One", "Two", "Three"});
    swipe(0, -200);
    host.advance(1);
    {
        Finger resting(host, {20, 30});
        EXPECT_FALSE(press(HostKey::undo));
        Finger onButton(host, {84, host.screen().size().height - 28}, 2);
        onButton.lift();
        resting.cancel();
    }
    tapWords(0);
    EXPECT_FALSE(press(HostKey::undo)) << "it is the editor's";
    tapUndo();
    EXPECT_EQ(saved(), (Lines{"Two", "Three"}));
    host.textInput().pressReturn();
    host.advance(1);
}

TEST_F(UndoTest, WhatComesBackIsInSightAndSoIsTheBadgeAfterACount)
{
    start(Lines(30, "note"));
    swipe(0, -200);
    host.advance(1);
    scroll(-330);
    list().Info();
    host.advance(1);
    host.press(HostKey::escape);
    host.advance(1);
    EXPECT_EQ(badge(), 29);
    press(HostKey::undo);
    EXPECT_EQ(badge(), 30);
    EXPECT_EQ(table().contentOffset().y, 0);
    EXPECT_EQ(row(0).alpha(), 1);
}

TEST_F(UndoTest, AHundredStepsAndWhatOneTurnOfTheLoopDoesIsOne)
{
    start({});
    UndoManager manager;
    int value = 0;
    const std::function<void(int)> set = [&](int next) {
        manager.registerUndo("set", [&set, before = value] { set(before); });
        value = next;
    };
    set(1);
    set(2);
    host.advance(0.1);
    manager.undo();
    EXPECT_EQ(value, 0);
    manager.redo();
    EXPECT_EQ(value, 2);
    for (int i = 3; i < 200; ++i) {
        host.advance(0.1);
        set(i);
    }
    int steps = 0;
    for (; manager.canUndo(); ++steps)
        manager.undo();
    EXPECT_EQ(steps, 100);
    EXPECT_EQ(value, 99);
}

} // namespace
} // namespace velmorath
