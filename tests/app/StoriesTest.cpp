#include <filesystem>
#include <gtest/gtest.h>

namespace velmorath {
namespace {

TEST(StoriesTest, EachIsOfATest)
{
    std::set<std::string> known;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j)
            known.insert(std::string(suite.name()) + "." + suite.GetTestInfo(j)->name() + ".txt");
    }
    for (const auto& file : std::filesystem::directory_iterator(VELMORATH_STORIES))
        EXPECT_TRUE(known.contains(file.path().filename().string())) << file.path();
}

} // namespace
} // namespace velmorath
