#include "Story.h"

namespace velmorath {
namespace {

class AccessibilityTest : public Story {
protected:
    bool focus(const std::string& label)
    {
        reader.read();
        return host.client().focusElement(reader.find(label).identifier);
    }
};

TEST_F(AccessibilityTest, KeysActWhereTheReaderPointsThemAndComeBackOrGoToTheNeighbour)
{
    start({"One", "x Two", "Three"});
    tellScreen();
    then("down", [&] { host.press(HostKey::down), host.press(HostKey::down); });
    then("to the third", [&] { EXPECT_TRUE(focus("Three")); });
    then("complete", [&] { host.press(HostKey::space); });
    then("open", [&] { reader.press("Three"); });
    then("close", [&] { reader.press("Close"); });
    then("delete", [&] { EXPECT_TRUE(focus("One") && reader.perform("One", "Delete")); });
}

TEST_F(AccessibilityTest, RowsAreWholeAtAnyMoment)
{
    start({"One", "Two", "Three"});
    tellScreen();
    then("at first", 0);
    then("no frame was made since", 0, [&] { table().reloadData(); });
    then("what fades away is not there any more", 0, [&] { reader.performKnown("Two", "Delete"); });
    host.advance(1);
    TwoFingers fingers(host, {100, 30}, {100, 90});
    then("a gap is no item", [&] { fingers.spread(40, 40); });
    fingers.cancel();
}

TEST_F(AccessibilityTest, DoesWhatKeysAndFingersDo)
{
    for (const std::string deed : {"Complete", "Delete", "Edit", "Move up", "Move down", "Insert below"}) {
        start({"One", "Two", "x Three"});
        then(deed, [&] { EXPECT_TRUE(reader.perform("Two", deed)); });
        then("typed", [&] { type("typed"); });
    }
    then("add", [&] { EXPECT_TRUE(reader.press("Add note")); });
    then("typed", [&] { type("first"); });
    then("reopen", [&] { EXPECT_TRUE(reader.perform("Three", "Reopen")); });
    then("open", [&] { EXPECT_TRUE(reader.press("Three")); });
}

TEST_F(AccessibilityTest, InsertsBelowARowEvenOutOfSight)
{
    start(numbers(20));
    const auto insertBelow = [this](const std::string& note) {
        then("below " + note, [&] { EXPECT_TRUE(reader.perform(note, "Insert below")); });
        then("typed", [&] { type("new"); });
    };
    insertBelow("0");
    insertBelow("6");
    host.wheel({100, 100}, -10000);
    insertBelow("18");
}

TEST_F(AccessibilityTest, WhileANoteIsTypedThereIsNothingElseToDo)
{
    start({"One", "Two"});
    tellScreen();
    then("edit", [&] { reader.perform("One", "Edit"); });
    then("nothing else", [&] { EXPECT_FALSE(reader.press("Two") || reader.press("Add note")); });
    then("emptied", 0, [&] { host.textInput().replaceText(""); });
    then("typed", [&] { host.textInput().pressReturn(); });
    Finger finger = beginSwipe(0, 200);
    then("the row is under a finger", [&] { EXPECT_FALSE(reader.perform("Two", "Delete")); });
    then("let go", [&] { finger.lift(); });
}

TEST_F(AccessibilityTest, WhatWasToldOnceIsDoneToNothingElse)
{
    start(numbers(20));
    const std::int64_t third = (reader.read(), reader.find("2").identifier);
    host.wheel({100, 100}, -600);
    host.advance(0.1);
    EXPECT_FALSE(reader.performKnown("2", "Delete")) << "its row shows another note now";
    EXPECT_EQ(notes().size(), 20u);
    host.wheel({100, 100}, 600);
    host.advance(0.1);
    reader.perform("2", "Move down");
    reader.read();
    EXPECT_EQ(reader.find("2").identifier, third) << "the note is the same at its new place";

    EXPECT_TRUE(reader.performKnown("2", "Complete"));
    host.advance(0.5);
    EXPECT_FALSE(reader.performKnown("2", "Complete")) << "it is completed already";
    EXPECT_TRUE(reader.performKnown("2", "Delete"));
    host.advance(1);
    EXPECT_EQ(notes().size(), 19u);
    EXPECT_FALSE(reader.performKnown("2", "Delete"));
    EXPECT_FALSE(host.client().pressElement(12345));
}

TEST_F(AccessibilityTest, LongListsAreReadPageByPage)
{
    start(numbers(20));
    tellScreen();
    then("at first", 0);
    then("a page", [&] { reader.perform("Notes", "Scroll down"); });
    then("the last", [&] { reader.perform("Notes", "Scroll down"); });
    EXPECT_EQ(reader.faults(), Lines{});
    then("to the end", [&] { EXPECT_TRUE(focus("19")); });
    then("reading goes on at the new page's top", [&] { reader.perform("Notes", "Scroll up"); });
    then("the wheel", [&] { host.wheel({100, 100}, -600); });
}

} // namespace
} // namespace velmorath
