#include "FilesOnDisk.h"
#include "KeyedArchiver.h"
#include "Story.h"
#include <filesystem>

namespace velmorath {
namespace {

/// Another machine and a synchroniser, which writes beside the notes' file and renames over it.
class NewsTest : public Story {
protected:
    NewsTest() { host.files().setShared(true); }

    static std::string archiveOf(const Lines& texts) { return KeyedArchiver::archivedData(notesFrom(texts)); }
    void put(const std::string& bytes) { replaceFromOutside(archivePath(), bytes); }
    void putList(const Lines& texts) { put(archiveOf(texts)); }
    void putCopy(const std::string& name, const std::string& bytes)
    {
        replaceFromOutside(*host.files().documentDirectory() + "/" + name, bytes);
    }
    /// Does it, and the program hears that something was done.
    void news(const std::string& what, const std::function<void()>& deed)
    {
        then(what, [&] {
            deed();
            host.client().documentsChanged();
        });
    }
    void newList(const std::string& what, const Lines& texts)
    {
        news(what, [&] { putList(texts); });
    }
    void press(const std::string& what, HostKey key)
    {
        then(what, 2, [&] { host.press(key); });
    }
    bool isTold() { return host.draw().text("The list of another device cannot be read."); }
};

TEST_F(NewsTest, AReplacedListIsShownAndSaysNothing)
{
    set("appIconBadge", "true");
    start({"One", "Two", "Three"});
    const auto two = list().arrayNote[1];
    then("nobody has said so", [&] { putList({"Zero", "x Two", "Three and a half"}); });
    news("it is said", [] {});
    EXPECT_EQ(list().arrayNote[1], two);
    EXPECT_EQ(countLines("ArchiveResults"), 0u);
    newList("only written again", {"Zero", "x Two", "Three and a half"});
}

TEST_F(NewsTest, WhatIsUnderTheEyesAndTheKeysStaysThere)
{
    Lines texts = numbers(26);
    start(texts);
    then("far down", [&] {
        table().setContentOffset({0, 615});
        host.press(HostKey::down);
    });
    texts.erase(texts.begin() + 2);
    texts.insert(texts.begin(), {"one", "two", "three"});
    newList("others on top", texts);
    news("a copy", [&] { putCopy("noteSalvate.sync-conflict-1.archive", archiveOf({"four", "five"})); });
}

TEST_F(NewsTest, TypingAGestureAndAScreenAreFinishedFirst)
{
    start({"One", "Two"});
    tapWords(0);
    newList("typing", {"One", "x Two"});
    then("typed", [&] { type("Uno"); });
    Finger finger = beginSwipe(0, 40);
    newList("a finger", {"Uno", "x Two", "Three"});
    then("let go", [&] { finger.lift(); });
    tapBesideWords(0);
    host.advance(1);
    newList("a screen", {"Uno", "x Two", "Three", "Four"});
    then("closed", [&] { presented()->dismiss(false); });
    then("a list that is thrown", 0, [&] {
        host.resize({320, 176});
        host.advance(0.1);
        Finger thrown(host, {200, 100});
        thrown.moveBy({0, -60}, 5);
        thrown.lift();
        putList({"Uno"});
        host.client().documentsChanged();
    });
    then("at rest", 4);
}

TEST_F(NewsTest, ASaveKeepsWhatItHasNotRead)
{
    start({"One", "Two", "Three"});
    putList({"Zero", "One", "Two", "x Three"});
    then("nothing comes into the list in the middle of a gesture", 0, [&] { swipe(0, -200); });
    then("later", 2);
    press("undo", HostKey::undo);
    then("another start", [&] { relaunch(); });
}

TEST_F(NewsTest, WhatCannotBeReadIsToldOnceAndPutAside)
{
    start({"One", "Two"});
    news("half a file", [&] { put("half a fi"); });
    EXPECT_TRUE(isTold());
    press("read", HostKey::escape);
    news("it is the same", [] {});
    then("saved", [&] { swipe(0, 200); });
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", "noteSalvate.archive.unreadable"}));
    news("one that goes away is no list to take", [&] { std::filesystem::remove(archivePath()); });
    newList("one that can be read", {"x One", "Two", "Three"});
    tapWords(1);
    news("half a file while typing", [&] { put("half a fi"); });
    then("a save puts it aside before anybody has looked", 2, [&] { type("Due"); });
    EXPECT_TRUE(isTold());
    EXPECT_EQ(filesInDocuments().size(), 3u);
    press("read", HostKey::escape);
}

TEST_F(NewsTest, CopiesOfConflictsComeOnTopAsOneStep)
{
    start({"One", "Two"});
    news("two copies", [&] {
        putCopy("noteSalvate.sync-conflict-20261123-110000-ABCDEFG.archive", archiveOf({"One", "Uno"}));
        putCopy("noteSalvate (conflicted copy).archive", archiveOf({"Due", "Two", "Uno"}));
        putCopy("noteSalvate.archive.tmp", "unfinished");
    });
    EXPECT_EQ(filesInDocuments(),
        (Lines{"noteSalvate (conflicted copy).archive.merged", "noteSalvate.archive",
            "noteSalvate.archive.tmp", "noteSalvate.sync-conflict-20261123-110000-ABCDEFG.archive.merged"}));
    press("undo", HostKey::undo);
    failOn(HeadlessFiles::Operation::setAside);
    news("one that cannot be moved",
        [&] { putCopy("noteSalvate.sync-conflict-2.archive", archiveOf({"Tre"})); });
    press("undo", HostKey::undo);
    news("it is not taken again and again", [] {});
}

TEST_F(NewsTest, TheTutorialIsOfferedFirst)
{
    putCopy("noteSalvate.sync-conflict.archive", "half a fi");
    launch();
    news("a copy", [] {});
    EXPECT_FALSE(isTold());
    press("no tutorial", HostKey::escape);
    EXPECT_TRUE(isTold());
}

TEST_F(NewsTest, AFullDiskLosesNothingOfBothSides)
{
    const std::string name = "noteSalvate.sync-conflict-1.archive";
    start({"One", "Two"});
    failOn(HeadlessFiles::Operation::replace);
    then("a save that fails", [&] { swipe(0, 200); });
    failOnNothing();
    newList("it is saved with what others did", {"One", "Two", "Three"});
    failOn(HeadlessFiles::Operation::replace);
    news("a copy", [&] { putCopy(name, archiveOf({"Four"})); });
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", name})) << "until its notes are saved";
    failOnNothing();
    news("another start", [&] { relaunch(); });
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive", name + ".merged"}));
}

TEST_F(NewsTest, TheKeysDoNothingToANoteThatTookAnotherOnesPlace)
{
    start({"One", "Two", "Three"});
    press("down", HostKey::down);
    press("down", HostKey::down);
    then("delete", [&] {
        putList({"One", "Three"});
        host.client().documentsChanged();
        host.press(HostKey::remove);
    });
}

TEST_F(NewsTest, AStepTakesBackNothingThatOthersDid)
{
    start({"One", "Two", "Three"});
    then("complete", [&] { swipe(1, 200); });
    newList("others", {"Zero", "One", "x Two and a half", "Three"});
    press("undo", HostKey::undo);
    press("redo", HostKey::redo);
    newList("deleted by others", {"Zero", "One", "Three"});
    press("it comes back with the step", HostKey::undo);
}

TEST_F(NewsTest, TheSampleNoteMakesWayUnlessItIsTheUsers)
{
    for (const bool isTheUsers : {false, true}) {
        failOn(HeadlessFiles::Operation::replace);
        launch();
        host.advance(1);
        press("no tutorial", HostKey::escape);
        if (isTheUsers)
            then("completed", [&] { swipe(0, 200); });
        failOnNothing();
        newList("another machine's", {"One"});
        host.quit();
        std::filesystem::remove(archivePath());
        std::filesystem::remove(*host.files().defaultsFile());
        forgetState();
    }
}

} // namespace
} // namespace velmorath
