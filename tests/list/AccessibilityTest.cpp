#include "ScreenReader.h"
#include "Story.h"

namespace velmorath {
namespace {

class AccessibilityTest : public Story {
protected:
    ScreenReader reader{host};
};

TEST_F(AccessibilityTest, KeysActWhereTheReaderPointsThem)
{
    start({"One", "x Two", "Three"});
    reader.read();
    EXPECT_EQ(reader.find("Two").frame, CGRectMake(0, 60, 320, 60));
    EXPECT_EQ(reader.find("Two").index, 1);
    EXPECT_EQ(reader.find("Notes").count, 3);
    host.press(HostKey::tab);
    host.press(HostKey::down);
    reader.read();
    EXPECT_TRUE(reader.find("Two").isFocused);
    EXPECT_FALSE(reader.find("One").isFocused);
    ASSERT_TRUE(host.client().focusElement(reader.find("Three").identifier));
    host.press(HostKey::space);
    EXPECT_EQ(saved(), (Lines{"One", "x Two", "x Three"}));
}

TEST_F(AccessibilityTest, KeysComeBackToWhatWasOpenedAndToTheNeighbourOfWhatIsGone)
{
    start({"One", "Two", "Three"});
    const auto focus = [this](const std::string& label) {
        reader.read();
        return host.client().focusElement(reader.find(label).identifier);
    };
    ASSERT_TRUE(focus("Three") && reader.press("Three") && reader.press("Close"));
    reader.read();
    EXPECT_TRUE(reader.find("Three").isFocused);
    ASSERT_TRUE(focus("One") && reader.perform("One", "Delete"));
    reader.read();
    EXPECT_TRUE(reader.find("Two").isFocused);
}

TEST_F(AccessibilityTest, RowsAreWholeAtAnyMoment)
{
    start({"One", "Two", "Three"});
    const Lines before = reader.everything();
    table().reloadData();
    EXPECT_EQ(reader.everything(), before) << "no frame was made since";
    EXPECT_TRUE(reader.performKnown("Two", "Delete"));
    EXPECT_EQ(reader.read().children.front().children.front().children.size(), 2u)
        << "what fades away is not there any more";

    host.advance(1);
    TwoFingers fingers(host, {100, 30}, {100, 90});
    fingers.spread(40, 40);
    reader.read();
    EXPECT_EQ(reader.find("Notes").children.size(), 2u);
    for (const AccessibilityElement& child : reader.find("Notes").children)
        EXPECT_EQ(child.role, AccessibilityRole::listItem) << child.label;
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
    Lines texts = numbers(20);
    start(texts);
    const auto insertBelow = [&](const std::string& note) {
        reader.perform(note, "Insert below");
        EXPECT_TRUE(host.textInput().isEditing()) << note;
        type("below " + note);
        host.advance(0.5);
        texts.insert(std::find(texts.begin(), texts.end(), note) + 1, "below " + note);
    };
    insertBelow("0");
    insertBelow("6");
    host.wheel({100, 100}, -10000);
    host.advance(0.1);
    insertBelow("19");
    EXPECT_EQ(saved(), texts);
}

TEST_F(AccessibilityTest, WhileANoteIsTypedThereIsNothingElseToDo)
{
    start({"One", "Two"});
    reader.perform("One", "Edit");
    EXPECT_EQ(reader.everything(),
        (Lines{"screen Velmorath", "  list Notes", "    item One", "    item Two",
            "  button Reorder notes [off]", "  button Add note", "  button Share", "  button Information"}));
    EXPECT_FALSE(reader.find("One").isFocused) << "keys go to the editor";
    EXPECT_FALSE(reader.press("Two"));
    EXPECT_FALSE(reader.press("Add note"));
    host.textInput().replaceText("");
    reader.read();
    EXPECT_EQ(reader.find("Empty note").index, 0);
    host.textInput().pressReturn();
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"Two"}));

    Finger finger = beginSwipe(0, 200);
    EXPECT_FALSE(reader.perform("Two", "Delete")) << "the row is under a finger";
    finger.lift();
    EXPECT_EQ(saved(), (Lines{"x Two"}));
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
    EXPECT_EQ(reader.find("2").index, 3);

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
    start(Lines(20, "note"));
    reader.read();
    EXPECT_EQ(reader.find("Notes").children.size(), 8u);
    EXPECT_EQ(reader.find("Notes").count, 20);
    EXPECT_EQ(reader.find("Notes").actions, (Lines{"Scroll down"}));
    reader.perform("Notes", "Scroll down");
    reader.read();
    EXPECT_EQ(reader.find("Notes").children.front().index, 7);
    EXPECT_EQ(reader.find("Notes").actions, (Lines{"Scroll down", "Scroll up"}));
    reader.perform("Notes", "Scroll down");
    reader.read();
    EXPECT_EQ(reader.find("Notes").children.back().index, 19);
    EXPECT_EQ(reader.find("Notes").actions, (Lines{"Scroll up"}));
    EXPECT_EQ(reader.faults(), Lines{});

    ASSERT_TRUE(host.client().focusElement(reader.find("Notes").children.back().identifier));
    reader.perform("Notes", "Scroll up");
    reader.read();
    EXPECT_TRUE(reader.find("Notes").children.front().isFocused) << "reading goes on at the new page's top";
    host.wheel({100, 100}, -600);
    host.advance(0.1);
    reader.read();
    EXPECT_TRUE(reader.find("Notes").children.front().isFocused);
}

} // namespace
} // namespace velmorath
