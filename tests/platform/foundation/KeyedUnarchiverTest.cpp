#include "KeyedUnarchiver.h"
#include "ArchiveBuilder.h"
#include "KeyedArchiver.h"
#include "ManyNotes.h"
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace velmorath {
namespace {

const std::string noteClass(ToDoItem2::className);

class KeyedUnarchiverTest : public testing::Test {
protected:
    KeyedUnarchiverTest() { ToDoItem2::enterInUnarchiver(); }

    auto finish(std::uint32_t root)
    {
        return KeyedUnarchiver::unarchiveTopLevelObject(m_builder.finish(root));
    }

    // The notes of a root that is an array of this one element.
    std::shared_ptr<ToDoItem2> finishNote(std::uint32_t note)
    {
        auto root = finish(m_builder.addArray({note}));
        EXPECT_TRUE(root) << root.error().description;
        if (!root || !root->array())
            return nullptr;
        return std::dynamic_pointer_cast<ToDoItem2>(root->array()->at(0).object());
    }

    std::uint32_t addText(std::string_view text) { return m_builder.add(m_builder.writer.addString(text)); }

    std::uint32_t addNote(std::uint32_t text)
    {
        return m_builder.addInstance(noteClass, {{"text", m_builder.writer.addUID(text)}});
    }

    ArchiveBuilder m_builder;
    BinaryPropertyListWriter& m_writer = m_builder.writer;
};

TEST_F(KeyedUnarchiverTest, DecodesRecordsWithMissingAndWrongEntries)
{
    auto number = m_builder.add(m_writer.addInteger(42));
    auto empty = finishNote(m_builder.addInstance(noteClass, {}));
    ASSERT_TRUE(empty);
    EXPECT_EQ(*empty, ToDoItem2());

    m_builder = {};
    number = m_builder.add(m_writer.addInteger(42));
    auto note = finishNote(m_builder.addInstance(noteClass,
        {{"text", m_writer.addUID(number)}, {"data", m_writer.addUID(addText("today"))},
            {"completed", m_writer.addBoolean(true)}, {"extra", m_writer.addReal(1)}}));
    ASSERT_TRUE(note);
    EXPECT_EQ(*note, *makeNote({}, "today", true));

    m_builder = {};
    note = finishNote(m_builder.addInstance(noteClass,
        {{"text", m_writer.addString("no reference")}, {"data", m_writer.addUID(0)},
            {"completed", m_writer.addString("true")}}));
    ASSERT_TRUE(note);
    EXPECT_EQ(*note, ToDoItem2());

    m_builder = {};
    auto list = m_builder.addArray({addText("in a list")}, "NSMutableArray");
    note = finishNote(addNote(list));
    ASSERT_TRUE(note);
    EXPECT_EQ(*note, ToDoItem2());
}

TEST_F(KeyedUnarchiverTest, DecodesTextsThatAreObjects)
{
    auto text = m_builder.addInstance("NSMutableString", {{"NS.string", m_writer.addString("ciò")}});
    auto date = m_builder.addInstance("NSString", {{"NS.bytes", m_writer.addData("oggi")}});
    auto note = finishNote(
        m_builder.addInstance(noteClass, {{"text", m_writer.addUID(text)}, {"data", m_writer.addUID(date)}}));
    ASSERT_TRUE(note);
    EXPECT_EQ(*note, *makeNote("ciò", "oggi", false));
}

TEST_F(KeyedUnarchiverTest, SharesWhatTheArchiveShares)
{
    auto note = addNote(addText("once"));
    auto root = finish(m_builder.addArray({note, note}));
    ASSERT_TRUE(root && root->array());
    EXPECT_TRUE(root->array()->at(0).object());
    EXPECT_EQ(root->array()->at(0).object(), root->array()->at(1).object());
}

TEST_F(KeyedUnarchiverTest, DecodesRootsThatAreNoList)
{
    auto null = finish(0);
    ASSERT_TRUE(null);
    EXPECT_TRUE(null->isNull());

    m_builder = {};
    auto text = finish(addText("text"));
    ASSERT_TRUE(text && text->string());
    EXPECT_EQ(*text->string(), "text");

    m_builder = {};
    auto one = finish(addNote(addText("text")));
    ASSERT_TRUE(one && one->object());

    m_builder = {};
    auto note = m_writer.addUID(addNote(0));
    auto elements = m_writer.addArray(std::vector{note});
    auto dictionary =
        finish(m_builder.addInstance("NSDictionary", {{"NS.keys", elements}, {"NS.objects", elements}}));
    ASSERT_TRUE(dictionary) << dictionary.error().description;
    EXPECT_TRUE(!dictionary->isNull() && !dictionary->array() && !dictionary->object());
}

TEST_F(KeyedUnarchiverTest, NamesUnknownClassesWhereverTheyAre)
{
    for (int place = 0; place < 4; ++place) {
        m_builder = {};
        auto unknown = m_builder.addInstance("Elsewhere.Thing", {});
        auto root = place == 0 ? unknown
            : place == 1       ? m_builder.addArray({unknown})
            : place == 2       ? m_builder.addArray({addNote(unknown)})
                               : m_builder.addInstance("NSSet",
                                   {{"NS.objects", m_writer.addArray(std::vector{m_writer.addUID(unknown)})}});
        auto value = finish(root);
        ASSERT_FALSE(value) << place;
        EXPECT_NE(value.error().description.find("Elsewhere.Thing"), std::string::npos);
    }
}

TEST_F(KeyedUnarchiverTest, RefusesWhatIsNoKeyedArchive)
{
    EXPECT_FALSE(KeyedUnarchiver::unarchiveTopLevelObject(""));
    EXPECT_FALSE(KeyedUnarchiver::unarchiveTopLevelObject(std::string(5000, 'x')));
    BinaryPropertyListWriter writer;
    EXPECT_FALSE(
        KeyedUnarchiver::unarchiveTopLevelObject(writer.finish(writer.addString("NSKeyedArchiver"))));

    m_builder.archiver = "NSArchiver";
    EXPECT_FALSE(finish(m_builder.addArray({})));
    m_builder = {};
    m_builder.version = m_writer.addString("100000");
    EXPECT_FALSE(finish(m_builder.addArray({})));
    m_builder = {};
    EXPECT_FALSE(finish(77));
    m_builder = {};
    EXPECT_FALSE(finish(m_builder.addArray({77})));
    m_builder = {};
    EXPECT_FALSE(finish(m_builder.addInstance("NSArray", {})));
    m_builder = {};
    EXPECT_FALSE(finish(m_builder.addInstance(
        "NSArray", {{"NS.objects", m_writer.addArray(std::vector{m_writer.addString("no reference")})}})));
    m_builder = {};
    EXPECT_FALSE(finish(m_builder.add(m_builder.dictionary({{"text", m_writer.addUID(0)}}))));
}

TEST_F(KeyedUnarchiverTest, RefusesCirclesAndDeepNesting)
{
    auto self = static_cast<std::uint32_t>(m_builder.objects.size() + 1);
    EXPECT_FALSE(finish(m_builder.addArray({self})));

    m_builder = {};
    self = static_cast<std::uint32_t>(m_builder.objects.size() + 1);
    EXPECT_FALSE(finish(m_builder.addArray({addNote(self)})));

    m_builder = {};
    auto list = m_builder.addArray({});
    for (int depth = 0; depth < 100000; ++depth)
        list = m_builder.addArray({list});
    EXPECT_FALSE(finish(list));
}

TEST_F(KeyedUnarchiverTest, PaysForHostileSharingOnlyOnce)
{
    auto usedBefore = rusage();
    getrusage(RUSAGE_SELF, &usedBefore);

    // Each list holds the one before ten times.
    auto list = m_builder.addArray({addText("ha")});
    for (int depth = 0; depth < 50; ++depth)
        list = m_builder.addArray(std::vector<std::uint32_t>(10, list));
    EXPECT_TRUE(finish(list));

    // A megabyte of text, very many times.
    m_builder = {};
    auto megabyte = addText(std::string(1 << 20, 'x'));
    EXPECT_TRUE(finish(m_builder.addArray(std::vector<std::uint32_t>(100000, megabyte))));
    m_builder = {};
    auto text = addText(std::string(1 << 20, 'x'));
    std::vector<std::uint32_t> notes;
    for (int i = 0; i < 10000; ++i)
        notes.push_back(addNote(text));
    EXPECT_FALSE(finish(m_builder.addArray(notes)));

    // One long list and one record with very many keys, each under very many numbers.
    m_builder = {};
    m_builder.addArray(std::vector<std::uint32_t>(100000, 0));
    auto same = m_builder.objects.back();
    std::vector<std::uint32_t> lists;
    for (int i = 0; i < 100000; ++i)
        lists.push_back(m_builder.add(same));
    EXPECT_FALSE(finish(m_builder.addArray(lists)));

    m_builder = {};
    ArchiveBuilder::Entries entries(100000, {"k", m_writer.addBoolean(true)});
    m_builder.addInstance(noteClass, entries);
    same = m_builder.objects.back();
    lists.clear();
    for (int i = 0; i < 100000; ++i)
        lists.push_back(m_builder.add(same));
    EXPECT_FALSE(finish(m_builder.addArray(lists)));

    auto usedAfter = rusage();
    getrusage(RUSAGE_SELF, &usedAfter);
    EXPECT_LT(usedAfter.ru_maxrss - usedBefore.ru_maxrss, 1L << 20) << "kilobytes";
}

TEST_F(KeyedUnarchiverTest, SurvivesEveryCutAndEveryFlippedByte)
{
    Notes notes{makeNote("plain", "22 nov", true), makeNote("è", {}, false)};
    auto bytes = KeyedArchiver::archivedData(notes);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(KeyedUnarchiver::unarchiveTopLevelObject(std::string(bytes, 0, length))) << length;
    int decoded = 0;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        for (unsigned flip : {0x01u, 0x80u, 0x0Fu, 0xFFu, 0x10u}) {
            auto damaged = bytes;
            damaged[place] = static_cast<char>(static_cast<unsigned char>(damaged[place]) ^ flip);
            decoded += KeyedUnarchiver::unarchiveTopLevelObject(damaged) ? 1 : 0;
        }
    }
    EXPECT_GT(decoded, 0);
}

} // namespace
} // namespace velmorath
