#include "KeyedArchiver.h"
#include "FilesOnDisk.h"
#include "HeadlessHost.h"
#include "KeyedUnarchiver.h"
#include "ManyNotes.h"
#include "NoteCopies.h"
#include "TemporaryFolder.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

std::string json(const std::optional<std::string>& text)
{
    if (!text)
        return "null";
    std::string quoted = "\"";
    for (char letter : *text) {
        if (letter == '"' || letter == '\\')
            quoted += '\\';
        quoted += letter == '\n' ? "\\n" : std::string(1, letter);
    }
    return quoted + "\"";
}

// As Python writes it, so that whole lists can be compared as texts.
std::string json(const Notes& notes)
{
    std::string text = "[";
    for (auto& note : notes) {
        if (text.size() > 1)
            text += ", ";
        text.append("[").append(json(note->text)).append(", ").append(json(note->data));
        text += note->completed ? ", true]" : ", false]";
    }
    text += "]";
    return text;
}

void save(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

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

    std::string run(const std::string& command) const
    {
        auto output = m_folder.path() + "/output";
        auto line = "python3 " VELMORATH_TEST_TOOLS "/archive_exchange.py " + command + " > " + output;
        EXPECT_EQ(std::system(line.c_str()), 0) << line;
        return contents(output);
    }

    bool archive(const Notes& notes)
    {
        bool result = false;
        KeyedArchiver::archiveRootObject(notes, m_path, [&](bool success) { result = success; });
        return result;
    }

    HeadlessHost m_host{VELMORATH_RESOURCES};
    TemporaryFolder m_folder;
    std::string m_path = m_folder.path() + "/notes";
};

TEST_F(KeyedArchiverTest, ARecordThatStandsTwiceStaysOne)
{
    auto twice = makeNote("twice", "today", true);
    auto once = makeNote("once", "today", true);
    auto bytes = KeyedArchiver::archivedData(Notes{twice, once, twice});
    for (int start = 0; start < 2; ++start) {
        auto read = unarchive(bytes);
        ASSERT_EQ(read.size(), 3u);
        EXPECT_EQ(read[0], read[2]);
        EXPECT_NE(read[0], read[1]);
        EXPECT_EQ(*read[0], *twice);
        EXPECT_EQ(*read[1], *once);
        bytes = KeyedArchiver::archivedData(read);
    }
}

TEST_F(KeyedArchiverTest, RepairsTextsThatAreNotUTF8)
{
    Notes notes{makeNote("a\xFFz\xE2\x82", "\xED\xA0\x80", false)};
    auto read = unarchive(KeyedArchiver::archivedData(notes));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0]->text, "a\uFFFDz\uFFFD");
    EXPECT_EQ(read[0]->data, "\uFFFD\uFFFD\uFFFD");
}

TEST_F(KeyedArchiverTest, PythonReadsWhatItWrote)
{
    for (auto& notes : {difficultNotes(), Notes(), manyNotes(30000)}) {
        ASSERT_TRUE(archive(notes));
        EXPECT_TRUE(run("show " + m_path) == json(notes) + "\n") << notes.size();
    }
}

TEST_F(KeyedArchiverTest, ReadsWhatPythonWrote)
{
    for (auto& notes : {difficultNotes(), Notes(), manyNotes(30000)}) {
        save(m_path + ".json", json(notes));
        run("write " + m_path + " < " + m_path + ".json");
        EXPECT_TRUE(json(unarchive(contents(m_path))) == json(notes)) << notes.size();
    }
}

TEST_F(KeyedArchiverTest, ReadsHalfCharactersAsReplacements)
{
    Notes notes{makeNote("<👍>", {}, false)};
    auto bytes = KeyedArchiver::archivedData(notes);
    auto place = bytes.find("\xD8\x3D\xDC\x4D");
    ASSERT_NE(place, std::string::npos);
    bytes.replace(place, 4, "\xDC\x4D\xD8\x3D");
    EXPECT_EQ(unarchive(bytes)[0]->text, "<\uFFFD\uFFFD>");
    bytes.replace(place, 6, std::string("\0<\0>\xD8\x3D", 6));
    EXPECT_EQ(unarchive(bytes)[0]->text, "<<>\uFFFD");
}

} // namespace
} // namespace velmorath
