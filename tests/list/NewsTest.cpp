#include "FilesOnDisk.h"
#include "KeyedArchiver.h"
#include "ListTest.h"
#include "ProgramState.h"
#include "UIApplication.h"
#include <filesystem>

namespace velmorath {
namespace {

/// Another machine and a synchroniser, which writes beside the notes' file and renames over it.
class NewsTest : public ListTest {
protected:
    NewsTest() { host.files().setShared(true); }

    std::string archiveOf(const Lines& texts) { return KeyedArchiver::archivedData(notesFrom(texts)); }
    void putList(const Lines& texts) { replaceFromOutside(archivePath(host), archiveOf(texts)); }
    void putCopy(const std::string& name, const std::string& bytes)
    {
        replaceFromOutside(*host.files().documentDirectory() + "/" + name, bytes);
    }
    /// A list from "aa" to "zz" that is scrolled down, with the keys in it.
    Lines startFarDown()
    {
        Lines texts;
        for (char letter = 'a'; letter <= 'z'; ++letter)
            texts.emplace_back(2, letter);
        start(texts);
        table().setContentOffset({0, 615});
        host.press(HostKey::down);
        return texts;
    }
    void hear()
    {
        host.client().documentsChanged();
        host.advance(1);
    }
    /// The one whose row the keys are on.
    static std::shared_ptr<ToDoItem2> focusedNote()
    {
        const auto row =
            std::dynamic_pointer_cast<TableViewCell>(UIApplication::shared().focusSystem().focusedView());
        return row ? row->toDoItem() : nullptr;
    }
};

TEST_F(NewsTest, AReplacedListIsShownAndSaysNothing)
{
    set("appIconBadge", "true");
    start({"One", "Two", "Three"});
    const auto two = list().arrayNote[1];
    takeLines();
    putList({"Zero", "x Two", "Three and a half"});
    EXPECT_EQ(notes(), (Lines{"One", "Two", "Three"})) << "nobody has said so";
    hear();
    EXPECT_EQ(shown(), (Lines{"Zero", "x Two", "Three and a half"}));
    EXPECT_EQ(list().arrayNote[1], two);
    EXPECT_EQ(badge(), 2);
    EXPECT_EQ(countLines("ArchiveResults"), 0u);
    EXPECT_EQ(host.effects().announced().back(), "The list was changed on another device.");
}

TEST_F(NewsTest, AListThatIsOnlyWrittenAgainIsNone)
{
    start({"One", "Two"});
    const auto told = host.effects().announced();
    putList({"One", "Two"});
    hear();
    EXPECT_EQ(host.effects().announced(), told);
}

TEST_F(NewsTest, WhatIsUnderTheEyesAndTheKeysStaysThere)
{
    Lines texts = startFarDown();
    host.advance(1);
    const auto note = focusedNote();
    ASSERT_TRUE(note);
    const CGFloat offset = table().contentOffset().y;
    const Lines before = shown();
    texts.erase(texts.begin() + 2);
    texts.insert(texts.begin(), {"one", "two", "three"});
    putList(texts);
    hear();
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(table().contentOffset().y, offset + 120);
    EXPECT_EQ(focusedNote(), note);
}

TEST_F(NewsTest, TypingAGestureAndAScreenAreFinishedFirst)
{
    start({"One", "Two"});
    tapWords(0);
    host.textInput().replaceText("Uno");
    putList({"One", "x Two"});
    hear();
    EXPECT_TRUE(host.textInput().isEditing());
    type("Uno");
    EXPECT_EQ(saved(), (Lines{"Uno", "x Two"}));
    host.advance(1);
    EXPECT_EQ(notes(), (Lines{"Uno", "x Two"}));

    Finger finger = beginSwipe(0, 40);
    putList({"Uno", "x Two", "Three"});
    hear();
    EXPECT_EQ(notes().size(), 2u);
    finger.lift();
    host.advance(1);
    EXPECT_EQ(notes().size(), 3u);

    tapBesideWords(0);
    host.advance(1);
    putList({"Uno", "x Two", "Three", "Four"});
    hear();
    EXPECT_EQ(notes().size(), 3u);
    leavePresented();
    host.advance(1);
    EXPECT_EQ(notes().size(), 4u);
}

TEST_F(NewsTest, ASaveKeepsWhatItHasNotRead)
{
    start({"One", "Two", "Three"});
    putList({"Zero", "One", "Two", "x Three"});
    swipe(0, -200);
    EXPECT_EQ(saved(), (Lines{"Zero", "Two", "x Three"}));
    EXPECT_EQ(notes(), (Lines{"Two", "Three"})) << "nothing comes into the list in the middle of a gesture";
    host.advance(2);
    EXPECT_EQ(notes(), (Lines{"Zero", "Two", "x Three"}));
    host.press(HostKey::undo);
    host.advance(2);
    EXPECT_EQ(saved(), notes());
    EXPECT_EQ(notes().size(), 4u);
    relaunch();
    EXPECT_EQ(notes().size(), 4u);
}

TEST_F(NewsTest, WhatCannotBeReadIsToldOnceAndPutAside)
{
    start({"One", "Two"});
    replaceFromOutside(archivePath(host), "half a fi");
    hear();
    EXPECT_TRUE(host.draw().text("The list of another device cannot be read."));
    EXPECT_EQ(notes(), (Lines{"One", "Two"}));
    host.press(HostKey::escape);
    host.advance(1);
    hear();
    EXPECT_FALSE(presented());
    swipe(0, 200);
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"x One", "Two"}));
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", "noteSalvate.archive.unreadable"}));
    // One that goes away is no list to take.
    std::filesystem::remove(archivePath(host));
    hear();
    EXPECT_EQ(notes(), (Lines{"x One", "Two"}));
    putList({"x One", "Two", "Three"});
    hear();
    EXPECT_EQ(notes(), (Lines{"x One", "Two", "Three"}));
    EXPECT_EQ(filesInDocuments().size(), 2u);
    // One that a save puts aside before anybody has looked is told as well.
    tapWords(1);
    replaceFromOutside(archivePath(host), "half a fi");
    hear();
    type("Due");
    host.advance(2);
    EXPECT_TRUE(host.draw().text("The list of another device cannot be read."));
    EXPECT_EQ(filesInDocuments().size(), 3u);
    host.press(HostKey::escape);
    host.advance(2);
    EXPECT_FALSE(presented());
}

TEST_F(NewsTest, CopiesOfConflictsComeOnTopAsOneStep)
{
    start({"One", "Two"});
    putCopy("noteSalvate.sync-conflict-20261123-110000-ABCDEFG.archive", archiveOf({"One", "Uno"}));
    putCopy("noteSalvate (conflicted copy).archive", archiveOf({"Due", "Two", "Uno"}));
    putCopy("noteSalvate.archive.tmp", "unfinished");
    hear();
    EXPECT_EQ(saved(), (Lines{"Due", "Uno", "One", "Two"}));
    EXPECT_EQ(filesInDocuments(),
        (Lines{"noteSalvate (conflicted copy).archive.merged", "noteSalvate.archive",
            "noteSalvate.archive.tmp", "noteSalvate.sync-conflict-20261123-110000-ABCDEFG.archive.merged"}));
    host.press(HostKey::undo);
    host.advance(1);
    hear();
    EXPECT_EQ(saved(), (Lines{"One", "Two"}));

    // One that cannot be moved is not taken again and again.
    failOn(HeadlessFiles::Operation::setAside);
    putCopy("noteSalvate.sync-conflict-2.archive", archiveOf({"Tre"}));
    hear();
    host.press(HostKey::undo);
    host.advance(1);
    hear();
    EXPECT_EQ(saved(), (Lines{"One", "Two"}));
}

TEST_F(NewsTest, TheTutorialIsOfferedFirst)
{
    putCopy("noteSalvate.sync-conflict.archive", "half a fi");
    launch();
    hear();
    EXPECT_TRUE(host.draw().text("Watch tutorial"));
    host.press(HostKey::escape);
    host.advance(2);
    EXPECT_TRUE(host.draw().text("The list of another device cannot be read."));
}

TEST_F(NewsTest, ASaveThatFailsKeepsWhatBothSidesDid)
{
    start({"One", "Two"});
    failOn(HeadlessFiles::Operation::replace);
    swipe(0, 200);
    host.advance(1);
    failOnNothing();
    putList({"One", "Two", "Three"});
    hear();
    EXPECT_EQ(notes(), (Lines{"x One", "Two", "Three"}));
    EXPECT_EQ(saved(), notes()) << "nothing else may come that would save it";
    swipe(1, 200);
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"x One", "x Two", "Three"}));
}

TEST_F(NewsTest, ACopyStaysUntilItsNotesAreSaved)
{
    const std::string name = "noteSalvate.sync-conflict-1.archive";
    start({"One", "Two"});
    failOn(HeadlessFiles::Operation::replace);
    putCopy(name, archiveOf({"Three"}));
    hear();
    EXPECT_EQ(notes(), (Lines{"Three", "One", "Two"}));
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", name}));
    failOnNothing();
    relaunch();
    hear();
    EXPECT_EQ(saved(), (Lines{"Three", "One", "Two"}));
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", name + ".merged"}));
}

TEST_F(NewsTest, CopiesOfConflictsLeaveTheEyesAndTheKeysWhereTheyAre)
{
    startFarDown();
    host.press(HostKey::down);
    host.advance(1);
    const Lines before = shown();
    const auto note = focusedNote();
    putCopy("noteSalvate.sync-conflict-1.archive", archiveOf({"one", "two"}));
    hear();
    EXPECT_EQ(notes().size(), 28u);
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(table().contentOffset().y, 615 + 120);
    EXPECT_EQ(focusedNote(), note);
}

TEST_F(NewsTest, TheKeysDoNothingToANoteThatTookAnotherOnesPlace)
{
    start({"One", "Two", "Three"});
    host.press(HostKey::down);
    host.press(HostKey::down);
    host.advance(1);
    ASSERT_EQ(focusedNote()->text, "Two");
    putList({"One", "Three"});
    host.client().documentsChanged();
    host.press(HostKey::remove);
    host.advance(1);
    EXPECT_EQ(notes(), (Lines{"One", "Three"}));
}

TEST_F(NewsTest, AStepTakesBackNothingThatOthersDid)
{
    start({"One", "Two", "Three"});
    swipe(1, 200);
    host.advance(1);
    putList({"Zero", "One", "x Two and a half", "Three"});
    hear();
    host.press(HostKey::undo);
    host.advance(1);
    EXPECT_EQ(notes(), (Lines{"Zero", "One", "Two and a half", "Three"}));
    host.press(HostKey::redo);
    host.advance(1);
    EXPECT_EQ(notes(), (Lines{"Zero", "One", "x Two and a half", "Three"}));
    // A note that others have deleted comes back with the step.
    putList({"Zero", "One", "Three"});
    hear();
    host.press(HostKey::undo);
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"Zero", "One", "Two and a half", "Three"}));
}

TEST_F(NewsTest, TheSampleNoteMakesWayUnlessItIsTheUsers)
{
    for (const bool isTheUsers : {false, true}) {
        failOn(HeadlessFiles::Operation::replace);
        launch();
        host.advance(1);
        host.press(HostKey::escape);
        host.advance(1);
        ASSERT_EQ(notes(), (Lines{"Hello!"}));
        if (isTheUsers)
            swipe(0, 200);
        failOnNothing();
        putList({"One"});
        hear();
        EXPECT_EQ(notes(), isTheUsers ? (Lines{"One", "x Hello!"}) : (Lines{"One"}));
        host.quit();
        std::filesystem::remove(archivePath(host));
        std::filesystem::remove(*host.files().defaultsFile());
        forgetProgramState();
    }
}

} // namespace
} // namespace velmorath
