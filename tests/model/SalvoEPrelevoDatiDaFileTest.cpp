#include "SalvoEPrelevoDatiDaFile.h"
#include "FilesOnDisk.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class SalvoEPrelevoDatiDaFileTest : public ListTest {
protected:
    SalvoEPrelevoDatiDaFileTest() { ToDoItem2::enterInUnarchiver(); }

    void put(const std::string& bytes) { ASSERT_FALSE(replaceFile(host.files(), archivePath(), bytes)); }
    static std::vector<std::shared_ptr<ToDoItem2>> load()
    {
        return SalvoEPrelevoDatiDaFile().UnarchiveResults();
    }
};

TEST_F(SalvoEPrelevoDatiDaFileTest, WhatIsSavedComesBack)
{
    std::vector<std::shared_ptr<ToDoItem2>> written(3);
    for (auto& note : written)
        note = std::make_shared<ToDoItem2>();
    written[0]->text = "Perché 👵🏽";
    written[0]->data = "Nov 22, 2026";
    written[1]->text = "";
    written[2]->completed = true;
    SalvoEPrelevoDatiDaFile().ArchiveResults({written[2]});
    takeLines();
    SalvoEPrelevoDatiDaFile().ArchiveResults(written);
    EXPECT_EQ(takeLines(), (Lines{"ArchiveResults", "Success writing to file!"}));

    const auto read = load();
    EXPECT_EQ(takeLines(), Lines());
    ASSERT_EQ(read.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(read[i]->text, written[i]->text);
        EXPECT_EQ(read[i]->data, written[i]->data);
        EXPECT_EQ(read[i]->completed, written[i]->completed);
    }
    SalvoEPrelevoDatiDaFile().ArchiveResults({});
    EXPECT_TRUE(load().empty());
}

TEST_F(SalvoEPrelevoDatiDaFileTest, AFileThatCannotBeReadIsKeptBesideTheNextOne)
{
    start({});
    put("these are no notes");
    relaunch();
    EXPECT_EQ(takeLines("error : ").size(), 1u);
    EXPECT_EQ(notes(), Lines());
    beginPull(70).lift();
    host.advance(1);
    type("New");
    EXPECT_EQ(saved(), (Lines{"New"}));
    const Lines files = filesInDocuments();
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(*host.files().read(*host.files().documentDirectory() + "/" + files[1]), "these are no notes");
}

TEST_F(SalvoEPrelevoDatiDaFileTest, ADiskThatCannotBeReadDoesNotLoseTheNotes)
{
    start({"One", "Two"});
    host.files().setFault([this](HeadlessFiles::Operation operation, const std::string& path) {
        return operation == HeadlessFiles::Operation::read && path == archivePath()
            ? std::optional(Error{"input/output error"})
            : std::nullopt;
    });
    relaunch();
    EXPECT_EQ(takeLines("error : "), (Lines{"error : input/output error"}));
    host.files().setFault({});
    beginPull(70).lift();
    host.advance(1);
    type("New");
    EXPECT_EQ(filesInDocuments().size(), 2u);
    EXPECT_EQ(saved(), (Lines{"New"}));
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
