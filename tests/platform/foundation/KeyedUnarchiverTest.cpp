#include "KeyedUnarchiver.h"
#include "ArchiveBuilder.h"
#include "KeyedArchiver.h"
#include "ManyNotes.h"
#include <gtest/gtest.h>

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

TEST_F(KeyedUnarchiverTest, AnObjectOfAnotherClassIsNoText)
{
    auto address = m_builder.addInstance("NSURL", {{"NS.base", m_writer.addUID(0)}});
    auto odd = m_builder.addInstance(noteClass,
        {{"text", m_writer.addUID(address)}, {"data", m_writer.addUID(addText("today"))},
            {"completed", m_writer.addBoolean(true)}});
    auto root = finish(m_builder.addArray({odd, addNote(addText("whole"))}));
    ASSERT_TRUE(root) << root.error().description;
    auto note = [&](std::size_t index) {
        return *std::dynamic_pointer_cast<ToDoItem2>(root->array()->at(index).object());
    };
    EXPECT_EQ(note(0), *makeNote({}, "today", true));
    EXPECT_EQ(note(1), *makeNote("whole", {}, false));
}

TEST_F(KeyedUnarchiverTest, WhatIsNotZeroIsTrue)
{
    auto isCompleted = [&](auto... value) {
        auto note = finishNote(m_builder.addInstance(noteClass, {{"completed", value...}}));
        m_builder = {};
        return note && note->completed;
    };
    auto refer = [&](ArchiveBuilder::Reference value) { return m_writer.addUID(m_builder.add(value)); };
    EXPECT_TRUE(isCompleted(m_writer.addInteger(1)));
    EXPECT_TRUE(isCompleted(m_writer.addReal(0.5)));
    EXPECT_TRUE(isCompleted(refer(m_writer.addBoolean(true))));
    EXPECT_TRUE(isCompleted(refer(m_writer.addInteger(-1))));
    EXPECT_FALSE(isCompleted(m_writer.addInteger(0)));
    EXPECT_FALSE(isCompleted(m_writer.addReal(0)));
    EXPECT_FALSE(isCompleted(refer(m_writer.addBoolean(false))));
    EXPECT_FALSE(isCompleted(m_writer.addUID(0)));
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
    EXPECT_TRUE(!null->array() && !null->object());

    m_builder = {};
    auto text = finish(addText("text"));
    ASSERT_TRUE(text);
    EXPECT_TRUE(!text->array() && !text->object());

    m_builder = {};
    auto one = finish(addNote(addText("text")));
    ASSERT_TRUE(one && one->object());

    m_builder = {};
    auto note = m_writer.addUID(addNote(0));
    auto elements = m_writer.addArray(std::vector{note});
    auto dictionary =
        finish(m_builder.addInstance("NSDictionary", {{"NS.keys", elements}, {"NS.objects", elements}}));
    ASSERT_TRUE(dictionary) << dictionary.error().description;
    EXPECT_TRUE(!dictionary->array() && !dictionary->object());
}

TEST_F(KeyedUnarchiverTest, NamesUnknownClassesOnOneLine)
{
    for (int place = 0; place < 3; ++place) {
        m_builder = {};
        auto unknown = m_builder.addInstance("Elsewhere\nerror : forged\r\u2028Thing", {});
        auto root = place == 0 ? unknown
            : place == 1       ? m_builder.addArray({unknown})
                               : m_builder.addInstance("NSSet",
                                   {{"NS.objects", m_writer.addArray(std::vector{m_writer.addUID(unknown)})}});
        auto value = finish(root);
        ASSERT_FALSE(value) << place;
        EXPECT_TRUE(value.error().description.ends_with(" Elsewhere error : forged  Thing"));
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
    auto list = m_builder.addArray({});
    for (int depth = 0; depth < 100000; ++depth)
        list = m_builder.addArray({list});
    EXPECT_FALSE(finish(list));
}

TEST_F(KeyedUnarchiverTest, PaysForHostileSharingOnlyOnce)
{
    // Each list holds the one before ten times.
    auto list = m_builder.addArray({addText("ha")});
    for (int depth = 0; depth < 50; ++depth)
        list = m_builder.addArray(std::vector<std::uint32_t>(10, list));
    EXPECT_TRUE(finish(list));

    // What an earlier archiver wrote: a long text, once for all of its notes.
    auto notesOf = [&](int count, std::size_t length) {
        m_builder = {};
        auto text = addText(std::string(length, 'x'));
        std::vector<std::uint32_t> notes;
        for (int i = 0; i < count; ++i)
            notes.push_back(addNote(text));
        return m_builder.addArray(notes);
    };
    EXPECT_TRUE(finish(notesOf(200, 10000)));
    EXPECT_FALSE(finish(notesOf(200, 1 << 20)));

    // One list with very many elements.
    m_builder = {};
    const std::vector elements(5000000, m_writer.addUID(0));
    EXPECT_FALSE(finish(m_builder.addInstance("NSArray", {{"NS.objects", m_writer.addArray(elements)}})));

    // The same long list, the same record, and the same record with very many keys, under many numbers.
    auto manyOfTheLast = [&](int count) {
        std::vector<std::uint32_t> uids;
        for (auto same = m_builder.objects.back(); count > 0; --count)
            uids.push_back(m_builder.add(same));
        return m_builder.addArray(uids);
    };
    m_builder = {};
    m_builder.addArray(std::vector<std::uint32_t>(100000, 0));
    EXPECT_FALSE(finish(manyOfTheLast(100)));
    m_builder = {};
    addNote(0);
    EXPECT_FALSE(finish(manyOfTheLast(1000000)));
    m_builder = {};
    m_builder.addInstance(noteClass, ArchiveBuilder::Entries(100000, {"k", m_writer.addBoolean(true)}));
    EXPECT_FALSE(finish(manyOfTheLast(30)));
}

} // namespace
} // namespace velmorath
