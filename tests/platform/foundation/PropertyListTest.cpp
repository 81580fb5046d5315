#include "BinaryPropertyListWriter.h"
#include "PropertyListSerialization.h"
#include <gtest/gtest.h>
#include <limits>

namespace velmorath {
namespace {

constexpr std::string_view date{"\x33\x41\xC8\x5D\0\0\0\0\0", 9};
constexpr std::string_view wideInteger{"\x14\0\0\0\0\0\0\0\0\x80\0\0\0\0\0\0\0", 17};

PropertyList everyKind()
{
    return PropertyList::Dictionary{
        {"array", PropertyList::Array{1, "due", PropertyList::Array{}, PropertyList::Dictionary{}}},
        {"boolean", true},
        {"date", PropertyList::Stored{std::string(date)}},
        {"data", PropertyList::Data{std::string("\0\xFF", 2)}},
        {"integer", std::numeric_limits<std::int64_t>::min()},
        {"perché 👍", "sì 好"},
        {"real", 0.1},
        {"long", std::string(300, 'x')},
    };
}

TEST(PropertyListTest, ReadsWhatItWrote)
{
    auto read = parseBinaryPropertyList(binaryPropertyList(everyKind()));
    ASSERT_TRUE(read) << read.error().description;
    EXPECT_EQ(*read, everyKind());
    EXPECT_NE(*read, PropertyList::Dictionary{});
    EXPECT_NE(PropertyList(true), PropertyList(1));
}

TEST(PropertyListTest, ReadsNumbersOfEverySize)
{
    // Offsets and references of one byte; integers of one and sixteen bytes, a real of four.
    std::string bytes = "bplist00";
    bytes += std::string("\xA4\x01\x02\x03\x04", 5);
    bytes += std::string("\x10\xFF", 2);
    bytes += std::string(wideInteger);
    bytes += std::string("\x22\x3F\0\0\0", 5);
    bytes += std::string("\x5F\x10\x01z", 4);
    bytes += std::string("\x08\x0D\x0F\x20\x25", 5);
    bytes += std::string("\0\0\0\0\0\0\x01\x01", 8) + std::string("\0\0\0\0\0\0\0\x05", 8)
        + std::string("\0\0\0\0\0\0\0\0", 8) + std::string("\0\0\0\0\0\0\0\x29", 8);
    auto read = parseBinaryPropertyList(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(*read,
        PropertyList(PropertyList::Array{255, PropertyList::Stored{std::string(wideInteger)}, 0.5, "z"}));
}

TEST(PropertyListTest, RefusesCirclesDepthAndEndlessSharing)
{
    BinaryPropertyListWriter circle;
    EXPECT_FALSE(parseBinaryPropertyList(circle.finish(circle.addArray(std::vector{0u}))));

    BinaryPropertyListWriter deep;
    auto list = deep.addArray({});
    for (int depth = 0; depth < 100000; ++depth)
        list = deep.addArray(std::vector{list});
    EXPECT_FALSE(parseBinaryPropertyList(deep.finish(list)));

    BinaryPropertyListWriter laughs;
    list = laughs.addString("ha");
    for (int depth = 0; depth < 50; ++depth)
        list = laughs.addArray(std::vector(10, list));
    EXPECT_FALSE(parseBinaryPropertyList(laughs.finish(list)));

    BinaryPropertyListWriter longText;
    auto text = longText.addString(std::string(1 << 20, 'x'));
    EXPECT_FALSE(parseBinaryPropertyList(longText.finish(longText.addArray(std::vector(10000, text)))));

    BinaryPropertyListWriter shared;
    text = shared.addString("true");
    EXPECT_TRUE(parseBinaryPropertyList(shared.finish(shared.addArray(std::vector(10000, text)))));
}

TEST(PropertyListTest, RefusesWhatBecomesMuchLargerInMemory)
{
    std::string bytes = "bplist00\xAF\x12" + std::string("\0\x98\x96\x80", 4);
    bytes += std::string(10000000, '\1') + '\x09';
    const auto table = static_cast<std::uint32_t>(bytes.size());
    bytes += std::string("\0\0\0\x08", 4);
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>((table - 1) >> shift);
    bytes +=
        std::string("\0\0\0\0\0\0\x04\x01", 8) + std::string("\0\0\0\0\0\0\0\x02", 8) + std::string(12, '\0');
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(table >> shift);
    EXPECT_FALSE(parseBinaryPropertyList(bytes));
}

TEST(PropertyListTest, RefusesKeysThatAreNoTexts)
{
    BinaryPropertyListWriter numberedKey;
    auto key = numberedKey.addInteger(1);
    EXPECT_FALSE(parseBinaryPropertyList(
        numberedKey.finish(numberedKey.addDictionary(std::vector{key}, std::vector{key}))));
}

} // namespace
} // namespace velmorath
