#include "URL.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

TEST(URLTest, TellsAddressesFromOtherTexts)
{
    for (const char* address : {"https://a.example/b?c=d#e", "mailto:a@b.example?body=%C3%A8%0D%0A",
             "itms-apps://store.example/app/id1", "x+1-2.y:z", "http://[::1]:80/"}) {
        const auto url = URL::parse(address);
        ASSERT_TRUE(url) << address;
        EXPECT_EQ(url->absoluteString(), address);
    }
    for (const char* text : {"", ":", "https:", "://a", "no scheme", "a.example/b", "1http://a", "ht tp://a",
             "http://a b", "http://a/è", "http://a/%", "http://a/%4", "http://a/%4g", "http://a/\"",
             "http://a/<b>", "http://a/\n"})
        EXPECT_FALSE(URL::parse(text)) << text;
}

TEST(URLTest, EncodesWhatAnAddressCannotHold)
{
    EXPECT_EQ(percentEncoded("aZ09-._~"), "aZ09-._~");
    EXPECT_EQ(percentEncoded("a b&c=d?%+\n"), "a%20b%26c%3Dd%3F%25%2B%0A");
    EXPECT_EQ(percentEncoded("è好😀"), "%C3%A8%E5%A5%BD%F0%9F%98%80");
}

} // namespace
} // namespace velmorath
