#include "KeyedArchiver.h"
#include "FilesOnDisk.h"
#include "HeadlessHost.h"
#include "KeyedUnarchiver.h"
#include "ManyNotes.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

Notes unarchive(const std::string& bytes)
{
    auto notes = archivedNotes(bytes);
    EXPECT_TRUE(notes) << notes.error().description;
    return notes ? *notes : Notes();
}

Notes difficultNotes()
{
    Notes notes{
        makeNote("", {}, false),
        makeNote({}, {}, true),
        makeNote({}, "22 nov 2026", false),
        makeNote("Perché già così", "22 nov 2026", true),
        makeNote("买牛奶 👩‍👩‍👧‍👦 𝒳", "2026年11月22日", false),
        makeNote("اشتر الخبز", "٢٢ نوفمبر", false),
        makeNote("\"quoted\" \\ and\ntwo lines", "$null", false),
        makeNote(std::string(70000, 'x'), "22 nov 2026", false),
        makeNote(std::string(14, 'a') + "é", std::string(15, 'b'), false),
    };
    // Equal texts are one in the file, whatever their size.
    for (const std::size_t size : {1, 14, 15, 16, 31, 32, 33, 100, 10000}) {
        std::string text;
        while (text.size() < size)
            text += "好";
        for (const std::string& equal : {text, std::string(size, 'x')})
            notes.insert(notes.end(), 20, makeNote(equal, equal, false));
    }
    return notes;
}

class KeyedArchiverTest : public testing::Test {
protected:
    KeyedArchiverTest() { ToDoItem2::enterInUnarchiver(); }

    HeadlessHost m_host{VELMORATH_RESOURCES};
    std::string m_path = *m_host.files().documentDirectory() + "/notes";
};

TEST_F(KeyedArchiverTest, ARecordThatStandsTwiceStaysOne)
{
    const auto twice = makeNote("equal", "today", true);
    const Notes read =
        unarchive(KeyedArchiver::archivedData(Notes{twice, makeNote("equal", "today", true), twice}));
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0], read[2]);
    EXPECT_NE(read[0], read[1]);
}

TEST_F(KeyedArchiverTest, RepairsTextsThatAreNotUTF8)
{
    Notes notes{makeNote("a\xFFz\xE2\x82", "\xED\xA0\x80", false)};
    auto read = unarchive(KeyedArchiver::archivedData(notes));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0]->text, "a\uFFFDz\uFFFD");
    EXPECT_EQ(read[0]->data, "\uFFFD\uFFFD\uFFFD");
}

TEST_F(KeyedArchiverTest, PythonReadsWhatItWroteAndItReadsWhatPythonWrites)
{
    for (const Notes& notes : {difficultNotes(), Notes(), manyNotes(30000)}) {
        KeyedArchiver::archiveRootObject(notes, m_path, [](bool success) { EXPECT_TRUE(success); });
        const std::string again = m_path + "-again";
        const std::string command =
            "python3 " VELMORATH_TEST_TOOLS "/archive_exchange.py " + m_path + " " + again;
        ASSERT_EQ(std::system(command.c_str()), 0);
        const Notes read = unarchive(contents(again));
        EXPECT_TRUE(std::equal(read.begin(), read.end(), notes.begin(), notes.end(),
            [](const auto& one, const auto& other) { return *one == *other; }))
            << notes.size();
    }
}

} // namespace
} // namespace velmorath
