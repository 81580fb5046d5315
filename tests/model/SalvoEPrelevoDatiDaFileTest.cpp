#include "SalvoEPrelevoDatiDaFile.h"
#include "FilesOnDisk.h"
#include "Story.h"

namespace velmorath {
namespace {

class SalvoEPrelevoDatiDaFileTest : public Story {
protected:
    SalvoEPrelevoDatiDaFileTest() { ToDoItem2::enterInUnarchiver(); }

    void put(const std::string& bytes) { ASSERT_FALSE(replaceFile(host.files(), archivePath(), bytes)); }
    static std::vector<std::shared_ptr<ToDoItem2>> load()
    {
        return SalvoEPrelevoDatiDaFile().UnarchiveResults();
    }
};

TEST_F(SalvoEPrelevoDatiDaFileTest, WhatCannotBeReadIsKeptBesideTheNextFile)
{
    start({"One", "Two"});
    const auto restart = [this](const std::string& what, const Lines& errors) {
        then(what, [&] { relaunch(); });
        EXPECT_EQ(takeLines("error : "), errors);
        failOnNothing();
        then("the next file", [&] { host.press(HostKey::insert), host.advance(1), type("New"); });
    };
    put("these are no notes");
    restart("no notes", {"error : The data is not a binary property list"});
    EXPECT_EQ(contents(archivePath() + ".unreadable"), "these are no notes");
    host.files().setFault([this](HeadlessFiles::Operation operation, const std::string& path) {
        return operation == HeadlessFiles::Operation::read && path == archivePath()
            ? std::optional(Error{"input/output error"})
            : std::nullopt;
    });
    restart("a disk that cannot be read", {"error : input/output error"});
    EXPECT_EQ(filesInDocuments().size(), 3u);
}

TEST_F(SalvoEPrelevoDatiDaFileTest, ALateAnswerIsLoggedBeforeTheNextFrame)
{
    start({"One", "Two"});
    host.files().setAnswersLate(true);
    swipe(0, 200);
    EXPECT_EQ(takeLines("writ"), Lines());
    host.advance(0.1);
    EXPECT_EQ(takeLines("writ"), (Lines{"Success writing to file!"}));
    host.files().setFault([](HeadlessFiles::Operation, const std::string&) { return Error{"disk full"}; });
    SalvoEPrelevoDatiDaFile().ArchiveResults({});
    host.files().answer();
    EXPECT_EQ(takeLines("writ"), (Lines{"Unable to write to file!"}));
}

TEST_F(SalvoEPrelevoDatiDaFileTest, TheSameNotesAreTheSameBytesOnEveryMachine)
{
    // The page in a browser has to write this file, too.
    const std::string bytes = contents(VELMORATH_TEST_TOOLS "/../model/many-notes.archive");
    put(bytes);
    const auto notes = load();
    ASSERT_EQ(notes.size(), 260u);
    SalvoEPrelevoDatiDaFile().ArchiveResults({});
    SalvoEPrelevoDatiDaFile().ArchiveResults(notes);
    const Result<std::string> written = host.files().read(archivePath());
    EXPECT_TRUE(written && *written == bytes);
}

using SalvoEPrelevoDatiDaFileDeathTest = SalvoEPrelevoDatiDaFileTest;

TEST_F(SalvoEPrelevoDatiDaFileDeathTest, ARootThatIsNoListOfNotes)
{
    const auto putFile = [this](const std::string& name) {
        put(contents(VELMORATH_CORPUS "/fuzz-archive/" + name + ".archive"));
    };
    for (const std::string name : {"one-note", "null"}) {
        putFile(name);
        EXPECT_DEATH(load(), "root is not a list") << name;
    }
    putFile("text-among-notes");
    EXPECT_DEATH(launch(), "something that is not a note");
    putFile("null-among-notes");
    EXPECT_DEATH(load(), "something that is not a note");
}

TEST_F(SalvoEPrelevoDatiDaFileDeathTest, NoDocumentsDirectory)
{
    host.files().setHasDocumentDirectory(false);
    EXPECT_DEATH(load(), "no documents directory");
    EXPECT_DEATH(SalvoEPrelevoDatiDaFile().ArchiveResults({}), "no documents directory");
}

} // namespace
} // namespace velmorath
