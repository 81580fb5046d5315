#include "KeyedUnarchiver.h"
#include "BinaryPropertyListWriter.h"
#include "PropertyList.h"
#include "ToDoItem2.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

using Writer = BinaryPropertyListWriter;
using References = std::vector<Writer::Reference>;

/// An archive of few bytes that would become very many in memory.
class HostileArchive {
public:
    Writer writer;
    References objects{writer.addString("$null")};

    Writer::Reference uid(std::size_t place) { return writer.addUID(static_cast<std::uint32_t>(place)); }
    Writer::Reference dictionary(const std::vector<std::pair<std::string, Writer::Reference>>& entries)
    {
        References keys;
        References values;
        for (const auto& [key, value] : entries) {
            keys.push_back(writer.addString(key));
            values.push_back(value);
        }
        return writer.addDictionary(keys, values);
    }
    /// The record, which refers to a class of this name. It is to be put among the objects.
    Writer::Reference instance(
        std::string_view name, std::vector<std::pair<std::string, Writer::Reference>> entries)
    {
        objects.push_back(dictionary({{"$classname", writer.addString(name)}}));
        entries.emplace_back("$class", uid(objects.size() - 1));
        return dictionary(entries);
    }
    Writer::Reference list(const References& elements)
    {
        return instance("NSArray", {{"NS.objects", writer.addArray(elements)}});
    }
    bool isReadAs(Writer::Reference root)
    {
        objects.push_back(root);
        const auto archive = dictionary(
            {{"$version", writer.addInteger(100000)}, {"$archiver", writer.addString("NSKeyedArchiver")},
                {"$top", dictionary({{"root", uid(objects.size() - 1)}})},
                {"$objects", writer.addArray(objects)}});
        ToDoItem2::enterInUnarchiver();
        return static_cast<bool>(KeyedUnarchiver::unarchiveTopLevelObject(writer.finish(archive)));
    }
    /// Whether a list is read that holds this object so often, each time under a number of its own.
    bool isReadManyTimes(Writer::Reference object, int count)
    {
        References uids;
        for (; count > 0; --count) {
            objects.push_back(object);
            uids.push_back(uid(objects.size() - 1));
        }
        return isReadAs(list(uids));
    }
};

TEST(KeyedUnarchiverTest, PaysForHostileSharingOnlyOnce)
{
    const std::string note(ToDoItem2::className);
    // What an earlier archiver wrote: a long text, once for all of its notes.
    const auto isLongTextRead = [&](std::size_t length) {
        HostileArchive archive;
        archive.objects.push_back(archive.writer.addString(std::string(length, 'x')));
        return archive.isReadManyTimes(archive.instance(note, {{"text", archive.uid(1)}}), 200);
    };
    EXPECT_TRUE(isLongTextRead(10000));
    EXPECT_FALSE(isLongTextRead(1 << 20));

    HostileArchive veryLong;
    EXPECT_FALSE(veryLong.isReadAs(veryLong.list(References(5000000, veryLong.uid(0)))));
    HostileArchive longOften;
    EXPECT_FALSE(longOften.isReadManyTimes(longOften.list(References(100000, longOften.uid(0))), 100));
    HostileArchive recordOften;
    EXPECT_FALSE(recordOften.isReadManyTimes(recordOften.instance(note, {}), 1000000));
    HostileArchive manyKeys;
    const std::vector entries(100000, std::pair(std::string("k"), manyKeys.writer.addBoolean(true)));
    EXPECT_FALSE(manyKeys.isReadManyTimes(manyKeys.instance(note, entries), 30));
}

TEST(PropertyListTest, RefusesWhatBecomesMuchLargerInMemory)
{
    Writer longText;
    const auto text = longText.addString(std::string(1 << 20, 'x'));
    EXPECT_FALSE(PropertyList::parse(longText.finish(longText.addArray(References(10000, text)))));
    Writer listsOfTen;
    auto list = listsOfTen.addString("ha");
    for (int depth = 0; depth < 50; ++depth)
        list = listsOfTen.addArray(References(10, list));
    EXPECT_FALSE(PropertyList::parse(listsOfTen.finish(list)));
    Writer longList;
    const auto small = longList.addBoolean(true);
    EXPECT_FALSE(PropertyList::parse(longList.finish(longList.addArray(References(10000000, small)))));
}

} // namespace
} // namespace velmorath
