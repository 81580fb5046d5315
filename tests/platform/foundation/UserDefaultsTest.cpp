#include "UserDefaults.h"
#include "FilesOnDisk.h"
#include "ListTest.h"
#include "Print.h"

namespace velmorath {
namespace {

using Operation = HeadlessFiles::Operation;

class UserDefaultsTest : public ListTest {
protected:
    bool synchronize()
    {
        bool result = false;
        m_defaults.synchronize([&](bool success) { result = success; });
        return result;
    }
    bool replace(const std::string& path, std::string_view bytes)
    {
        return !replaceFile(host.files(), path, bytes);
    }

    UserDefaults& m_defaults = UserDefaults::standard();
    std::string m_path = *host.files().defaultsFile();
    std::string m_aside = m_path + ".unreadable";
};

TEST_F(UserDefaultsTest, KeepsValuesOfEveryKindFromStartToStart)
{
    const PropertyList date = PropertyList::Stored{std::string("\x33\x41\xC8\x5D\0\0\0\0\0", 9)};
    const PropertyList::Dictionary settings{{"theme", "Red"}, {"since", date}};
    ASSERT_TRUE(replace(
        m_path, PropertyList(PropertyList::Dictionary{{"date", date}, {"settaggi", settings}}).binary()));
    m_defaults.setBool("HasLaunchedOnce", true);
    m_defaults.setObject("gone", "soon");
    m_defaults.removeObject("gone");
    EXPECT_TRUE(synchronize());
    m_defaults.setBool("HasLaunchedOnce", false);

    m_defaults.reset();
    EXPECT_TRUE(m_defaults.boolForKey("HasLaunchedOnce"));
    EXPECT_FALSE(m_defaults.boolForKey("settaggi"));
    EXPECT_EQ(m_defaults.dictionary("HasLaunchedOnce"), nullptr);
    EXPECT_EQ(m_defaults.object("gone"), nullptr);
    EXPECT_EQ(*m_defaults.object("date"), date);
    EXPECT_EQ(
        description(*m_defaults.dictionary("settaggi")), "{\n    since = <9 bytes>;\n    theme = Red;\n}");
}

TEST_F(UserDefaultsTest, NumbersAndTextsAreTrueOrFalse)
{
    auto isTrue = [&](PropertyList value) {
        m_defaults.setObject("HasLaunchedOnce", std::move(value));
        return m_defaults.boolForKey("HasLaunchedOnce");
    };
    for (const PropertyList& value : PropertyList::Array{true, -2, 0.5, "YES", "true", " 07"})
        EXPECT_TRUE(isTrue(value)) << description({{"value", value}});
    for (const PropertyList& value : PropertyList::Array{false, 0, 0.0, "NO", "0", "", "no 1"})
        EXPECT_FALSE(isTrue(value)) << description({{"value", value}});
}

TEST_F(UserDefaultsTest, WritesOnlyChangesAndTriesAgainAndLivesWithoutAFile)
{
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(host.files().replacements(), 0);
    m_defaults.setObject("nuovaNota", "No");
    failOn(Operation::replace);
    EXPECT_FALSE(synchronize());
    failOnNothing();
    EXPECT_TRUE(synchronize());
    m_defaults.setObject("nuovaNota", "No");
    m_defaults.removeObject("absent");
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(host.files().replacements(), 1);

    host.files().setHasDefaultsFile(false);
    m_defaults.setObject("theme", "Blue");
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(*m_defaults.object("theme")->string(), "Blue");
}

TEST_F(UserDefaultsTest, KeepsADamagedFileAside)
{
    for (auto damaged : {"not a property list", ""}) {
        ASSERT_FALSE(replaceFile(host.files(), m_path, damaged));
        m_defaults.reset();
        EXPECT_EQ(m_defaults.object("theme"), nullptr);
        EXPECT_EQ(*host.files().read(m_path), damaged);
        m_defaults.setObject("theme", "Blue");
        EXPECT_TRUE(synchronize());
        m_defaults.setObject("theme", "Red");
        EXPECT_TRUE(synchronize());
    }
    EXPECT_EQ(*host.files().read(m_aside), "not a property list");
    EXPECT_EQ(*host.files().read(m_aside + "-2"), "");
    EXPECT_FALSE(host.files().exists(m_aside + "-3"));
}

TEST_F(UserDefaultsTest, LosesNothingWhenAnUnreadableFileCannotBeSetAside)
{
    auto missing = m_path + "-missing";
    ASSERT_TRUE(replace(m_path, "precious"));
    host.files().markUnreadable(m_path);
    host.files().markUnreadable(missing);

    failOn(Operation::setAside);
    EXPECT_FALSE(replace(m_path, "new"));
    EXPECT_EQ(*host.files().read(m_path), "precious");
    failOn(Operation::replace);
    EXPECT_FALSE(replace(m_path, "new"));
    EXPECT_EQ(*host.files().read(m_aside), "precious");
    failOnNothing();
    EXPECT_TRUE(replace(m_path, "new"));
    EXPECT_TRUE(replace(missing, "new"));
    EXPECT_EQ(*host.files().read(m_path), "new");
    EXPECT_EQ(*host.files().read(m_aside), "precious");
}

TEST_F(UserDefaultsTest, AChangeDuringAWriteIsNotForgotten)
{
    host.files().setAnswersLate(true);
    m_defaults.setObject("theme", "Blue");
    std::vector<bool> answers;
    auto keep = [&](bool success) { answers.push_back(success); };
    m_defaults.synchronize(keep);
    m_defaults.setObject("theme", "Red");
    EXPECT_TRUE(answers.empty());
    host.files().answer();
    EXPECT_EQ(answers, std::vector<bool>{true});

    failOn(Operation::replace);
    m_defaults.synchronize(keep);
    host.files().answer();
    failOnNothing();
    m_defaults.synchronize(keep);
    host.files().answer();
    EXPECT_EQ(answers, (std::vector<bool>{true, false, true}));
    m_defaults.reset();
    EXPECT_EQ(*m_defaults.object("theme")->string(), "Red");
}

TEST_F(UserDefaultsTest, AnUnreadableFileIsSetAsideOnceHoweverLateTheAnswers)
{
    auto replaceLater = [this](std::string_view bytes) {
        host.files().replace(m_path, bytes, [](const auto&) {});
    };
    ASSERT_TRUE(replace(m_path, "precious"));
    host.files().markUnreadable(m_path);
    host.files().setAnswersLate(true);
    failOn(Operation::replace);
    replaceLater("one");
    host.files().answer();

    failOnNothing();
    replaceLater("two");
    replaceLater("three");
    host.files().answer();
    replaceLater("four");
    EXPECT_EQ(*host.files().read(m_aside), "precious");
    EXPECT_FALSE(host.files().exists(m_aside + "-2"));
    EXPECT_EQ(*host.files().read(m_path), "four");
}

} // namespace
} // namespace velmorath
