#include "UserDefaults.h"
#include "FileManager.h"
#include "StorageHost.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

class UserDefaultsTest : public testing::Test {
protected:
    UserDefaultsTest() { m_defaults.reset(); }
    ~UserDefaultsTest() override { m_defaults.reset(); }

    StorageHost m_host;
    UserDefaults& m_defaults = UserDefaults::standard();
    std::string m_path = m_host.folder() + "/defaults.plist";
    std::string m_aside = m_path + ".unreadable";
};

TEST_F(UserDefaultsTest, KeepsValuesFromStartToStart)
{
    m_defaults.setBool("HasLaunchedOnce", true);
    m_defaults.setObject("settaggi", PropertyList::Dictionary{{"theme", "Red"}, {"other", 7}});
    m_defaults.setObject("gone", "soon");
    m_defaults.removeObject("gone");
    EXPECT_FALSE(m_host.files().exists(m_path));
    EXPECT_TRUE(m_defaults.synchronize());
    m_defaults.setBool("HasLaunchedOnce", false);

    m_defaults.reset();
    EXPECT_TRUE(m_defaults.boolForKey("HasLaunchedOnce"));
    EXPECT_FALSE(m_defaults.boolForKey("settaggi"));
    EXPECT_EQ(m_defaults.dictionary("HasLaunchedOnce"), nullptr);
    EXPECT_EQ(m_defaults.object("gone"), nullptr);
    ASSERT_TRUE(m_defaults.dictionary("settaggi"));
    EXPECT_EQ(*m_defaults.dictionary("settaggi")->at("theme").string(), "Red");
}

TEST_F(UserDefaultsTest, WritesOnlyChangesAndTriesAgain)
{
    EXPECT_TRUE(m_defaults.synchronize());
    EXPECT_EQ(m_host.replaceCount, 0);
    m_defaults.setObject("nuovaNota", "No");
    m_host.failReplacing = true;
    EXPECT_FALSE(m_defaults.synchronize());
    EXPECT_TRUE(m_defaults.object("nuovaNota"));
    m_host.failReplacing = false;
    EXPECT_TRUE(m_defaults.synchronize());
    m_defaults.setObject("nuovaNota", "No");
    m_defaults.removeObject("absent");
    EXPECT_TRUE(m_defaults.synchronize());
    EXPECT_EQ(m_host.replaceCount, 2);
}

TEST_F(UserDefaultsTest, LivesWithoutAFile)
{
    m_host.hasDefaultsFile = false;
    EXPECT_EQ(m_defaults.object("theme"), nullptr);
    m_defaults.setObject("theme", "Blue");
    EXPECT_FALSE(m_defaults.synchronize());
    EXPECT_EQ(*m_defaults.object("theme")->string(), "Blue");
}

TEST_F(UserDefaultsTest, KeepsADamagedFileAside)
{
    for (auto damaged : {"not a property list", ""}) {
        ASSERT_FALSE(m_host.files().replace(m_path, damaged));
        m_defaults.reset();
        EXPECT_EQ(m_defaults.object("theme"), nullptr);
        EXPECT_EQ(*m_host.files().read(m_path), damaged);
        m_defaults.setObject("theme", "Blue");
        EXPECT_TRUE(m_defaults.synchronize());
        m_defaults.setObject("theme", "Red");
        EXPECT_TRUE(m_defaults.synchronize());
    }
    EXPECT_EQ(*m_host.files().read(m_aside), "not a property list");
    EXPECT_EQ(*m_host.files().read(m_aside + "-2"), "");
    EXPECT_FALSE(m_host.files().exists(m_aside + "-3"));
}

TEST_F(UserDefaultsTest, LosesNothingWhenAFileCannotBeReadOrSetAside)
{
    auto& fileManager = FileManager::standard();
    ASSERT_TRUE(fileManager.replace(m_path, "precious"));
    m_host.failReads = true;
    EXPECT_FALSE(fileManager.read(m_path));
    EXPECT_FALSE(fileManager.read(m_host.folder() + "/missing"));
    m_host.failReads = false;

    m_host.failSettingAside = true;
    EXPECT_FALSE(fileManager.replace(m_path, "new"));
    EXPECT_EQ(*fileManager.read(m_path), "precious");
    m_host.failSettingAside = false;
    m_host.failReplacing = true;
    EXPECT_FALSE(fileManager.replace(m_path, "new"));
    EXPECT_EQ(*fileManager.read(m_aside), "precious");
    m_host.failReplacing = false;
    EXPECT_TRUE(fileManager.replace(m_path, "new"));
    EXPECT_TRUE(fileManager.replace(m_host.folder() + "/missing", "new"));
    EXPECT_EQ(*fileManager.read(m_path), "new");
    EXPECT_EQ(*fileManager.read(m_aside), "precious");
}

} // namespace
} // namespace velmorath
