#include "RetryingFiles.h"
#include "PosixFiles.h"
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace velmorath {

namespace {

/// A folder that a file can take the place of: nobody, root neither, saves anything there then.
class RetryingFilesTest : public testing::Test {
protected:
    RetryingFilesTest() { QDir().mkdir(m_folder); }

    void breakFolder()
    {
        EXPECT_TRUE(QFile::rename(m_folder, m_folder + QStringLiteral(".away")));
        QFile file(m_folder);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
    void mendFolder()
    {
        EXPECT_TRUE(QFile::remove(m_folder));
        EXPECT_TRUE(QFile::rename(m_folder + QStringLiteral(".away"), m_folder));
    }
    bool save(const char* bytes)
    {
        bool isSaved = false;
        files.replace(path, bytes, [&](const std::optional<Error>& error) { isSaved = !error; });
        return isSaved;
    }
    std::string saved(const std::string& where) { return machine.read(where) ? *machine.read(where) : ""; }

    QTemporaryDir m_scratch;
    QString m_folder = m_scratch.filePath(QStringLiteral("Documents"));
    const std::string path = m_folder.toStdString() + "/notes.archive";
    PosixFiles machine{{}, {}, {}};
    std::vector<bool> changes;
    RetryingFiles files{
        machine, std::chrono::milliseconds(20), [this](bool isUnsaved) { changes.push_back(isUnsaved); }};
};

TEST_F(RetryingFilesTest, WhatCouldNotBeSavedIsSavedLaterAndToldOnce)
{
    EXPECT_TRUE(save("first"));
    breakFolder();
    EXPECT_FALSE(save("second"));
    EXPECT_FALSE(save("third"));
    QTest::qWait(70);
    EXPECT_EQ(changes, (std::vector{true}));
    mendFolder();
    EXPECT_TRUE(QTest::qWaitFor([this] { return saved(path) == "third"; }));
    EXPECT_EQ(changes, (std::vector{true, false}));
}

TEST_F(RetryingFilesTest, WhatOthersPutThereMeanwhileIsNotOverwritten)
{
    EXPECT_TRUE(save("first"));
    breakFolder();
    EXPECT_FALSE(save("ours"));
    mendFolder();
    machine.replace(path, "theirs", [](const auto&) {});
    EXPECT_EQ(*files.read(path), "theirs");
    QTest::qWait(100);
    EXPECT_EQ(saved(path), "theirs");
    EXPECT_EQ(changes, (std::vector{true})) << "it is not saved yet";
    files.tryLast();
    EXPECT_EQ(saved(path), "theirs");
    const auto copies = files.copiesBeside(path);
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_EQ(saved(copies.front()), "ours");
    EXPECT_TRUE(save("both"));
    EXPECT_EQ(saved(path), "both");
    EXPECT_EQ(changes, (std::vector{true, false}));
}

TEST_F(RetryingFilesTest, AnUnreadableFileThatWasGoneForAWhileIsSetAsideAllTheSame)
{
    EXPECT_TRUE(save("damaged"));
    files.markUnreadable(path);
    breakFolder();
    EXPECT_FALSE(save("first"));
    mendFolder();
    EXPECT_TRUE(QTest::qWaitFor([this] { return saved(path) == "first"; }));
    EXPECT_EQ(saved(path + ".unreadable"), "damaged");
    EXPECT_TRUE(save("second"));
    EXPECT_FALSE(files.exists(path + ".unreadable-2"));
}

} // namespace

} // namespace velmorath
