#include "Story.h"
#include "UndoManager.h"

namespace velmorath {
namespace {

class UndoTest : public Story {
protected:
    void edit(std::size_t place, const std::string& text)
    {
        tapWords(place);
        type(text);
        host.advance(1);
    }
    void tapUndo() { tap({84, host.screen().size().height - 28}); }
};

TEST_F(UndoTest, EachChangeIsTakenBackAndDoneAgain)
{
    const auto add = [this] {
        beginPull(70).lift();
        type("New");
    };
    const auto move = [this] {
        host.press(HostKey::down);
        host.press(HostKey::down, false, true);
    };
    const auto deleteInFull = [this] {
        tapBesideWords(3);
        host.advance(0.5);
        tap({100, 300});
        host.textInput().replaceText("");
        tap({292, 28});
    };
    using Change = std::function<void()>;
    for (const auto& [what, change] : {std::pair<std::string, Change>{"delete", [&] { swipe(0, -200); }},
             {"reopen", [&] { swipe(1, 200); }}, {"edit", [&] { edit(2, "3"); }},
             {"empty", [&] { edit(2, ""); }}, {"add", add}, {"move", move},
             {"delete in full", deleteInFull}}) {
        start({"One", "x Two", "Three", "Four"});
        const auto notes = list().arrayNote;
        for (const auto& note : notes)
            note->data = "Nov 1, 2026";
        then(what, change);
        takeLines();
        for (int turn = 0; turn < 2; ++turn) {
            then("undo", [&] { EXPECT_TRUE(host.press(HostKey::undo)); });
            EXPECT_EQ(list().arrayNote, notes) << "the same records";
            EXPECT_EQ(notes[2]->data, "Nov 1, 2026") << "with their dates";
            EXPECT_FALSE(host.press(HostKey::undo)) << "there is no more";
            then("redo", [&] { EXPECT_TRUE(host.press(HostKey::redo)); });
        }
        EXPECT_EQ(countLines("toDoItemDeleted:") + countLines("moveRowAtIndexPath"), 0u);
    }
}

TEST_F(UndoTest, TheButtonIsThereForWhatThereIs)
{
    start({"One", "Two"});
    const auto see = [this](const std::string& what, const std::function<void()>& deed) {
        then(what, deed);
        for (const std::string& line : reader.everything()) {
            if (line.find("do: ") != std::string::npos)
                then(line, 0);
        }
    };
    see("there is none", [&] { tapUndo(); });
    see("complete", [&] { swipe(0, 200); });
    see("delete", [&] { swipe(1, -200); });
    see("undo", [&] { tapUndo(); });
    Finger finger(host, {84, host.screen().size().height - 28});
    see("held", [] {});
    see("let go", [&] { finger.lift(); });
    see("undo twice", [&] { tapUndo(), tapUndo(); });
    see("what the button tells is done", [&] { EXPECT_TRUE(reader.press("Redo: Complete One")); });
    see("back", [&] { tapUndo(); });
    see("there is only something to be done again", [&] { tapUndo(); });
    see("back", [&] { tapUndo(); });
    Finger moved(host, {84, host.screen().size().height - 28});
    see("a finger that moves does not hold", [&] { moved.moveBy({12, 0}); });
    moved.cancel();
    {
        Finger first(host, {84, host.screen().size().height - 28});
        host.advance(0.3);
        first.lift();
        Finger second(host, {84, host.screen().size().height - 28});
        then("nor do two that are short", 0.3);
        second.cancel();
    }
    see("what was taken back is over", [&] { swipe(0, -200); });
}

TEST_F(UndoTest, NotWhileATextIsTypedOrFingersAreDown)
{
    start({"One", "Two", "Three"});
    then("delete", [&] { swipe(0, -200); });
    {
        Finger resting(host, {20, 30});
        EXPECT_FALSE(host.press(HostKey::undo) || host.press(HostKey::redo));
        Finger onButton(host, {84, host.screen().size().height - 28}, 2);
        then("with two fingers", [&] { onButton.lift(); });
        resting.cancel();
    }
    tapWords(0);
    EXPECT_FALSE(host.press(HostKey::undo)) << "it is the editor's";
    then("while typing", [&] { tapUndo(); });
}

TEST_F(UndoTest, WhatComesBackIsInSightAndSoIsTheBadgeAfterACount)
{
    start(numbers(30));
    then("delete", [&] { swipe(0, -200); });
    then("complete", [&] { swipe(0, 200); });
    then("edit: the badge counts one too many", [&] { edit(1, "two"); });
    then("scrolled", [&] { scroll(-330); });
    host.effects().setBadge(17);
    list().Info();
    host.advance(1);
    then("counted anew", [&] { host.press(HostKey::escape); });
    then("undo what is right already", 0.1, [&] { host.press(HostKey::undo); });
    then("undo", 0.1, [&] { host.press(HostKey::undo); });
    then("undo", 0.1, [&] { host.press(HostKey::undo); });
    then("in its place", 1);
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
