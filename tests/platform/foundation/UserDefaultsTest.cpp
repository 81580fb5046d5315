#include "UserDefaults.h"
#include "FilesOnDisk.h"
#include "HeadlessHost.h"
#include "Print.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

using Operation = HeadlessFiles::Operation;

class UserDefaultsTest : public testing::Test {
protected:
    UserDefaultsTest() { m_defaults.reset(); }
    ~UserDefaultsTest() override { m_defaults.reset(); }

    bool synchronize()
    {
        bool result = false;
        m_defaults.synchronize([&](bool success) { result = success; });
        return result;
    }
    bool replace(const std::string& path, std::string_view bytes)
    {
        bool result = false;
        m_host.files().replace(path, bytes, [&](const auto& error) { result = !error; });
        return result;
    }
    void fail(Operation failing)
    {
        m_host.files().setFault([failing](Operation operation, const std::string&) {
            return operation == failing ? std::optional(Error{"input/output error"}) : std::nullopt;
        });
    }
    void failNothing() { m_host.files().setFault({}); }

    HeadlessHost m_host{VELMORATH_RESOURCES};
    UserDefaults& m_defaults = UserDefaults::standard();
    std::string m_path = *m_host.files().defaultsFile();
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
    EXPECT_EQ(m_host.files().replacements(), 0);
    m_defaults.setObject("nuovaNota", "No");
    fail(Operation::replace);
    EXPECT_FALSE(synchronize());
    failNothing();
    EXPECT_TRUE(synchronize());
    m_defaults.setObject("nuovaNota", "No");
    m_defaults.removeObject("absent");
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(m_host.files().replacements(), 1);

    m_host.files().setHasDefaultsFile(false);
    m_defaults.setObject("theme", "Blue");
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(*m_defaults.object("theme")->string(), "Blue");
}

TEST_F(UserDefaultsTest, KeepsADamagedFileAside)
{
    for (auto damaged : {"not a property list", ""}) {
        ASSERT_FALSE(replaceFile(m_host.files(), m_path, damaged));
        m_defaults.reset();
        EXPECT_EQ(m_defaults.object("theme"), nullptr);
        EXPECT_EQ(*m_host.files().read(m_path), damaged);
        m_defaults.setObject("theme", "Blue");
        EXPECT_TRUE(synchronize());
        m_defaults.setObject("theme", "Red");
        EXPECT_TRUE(synchronize());
    }
    EXPECT_EQ(*m_host.files().read(m_aside), "not a property list");
    EXPECT_EQ(*m_host.files().read(m_aside + "-2"), "");
    EXPECT_FALSE(m_host.files().exists(m_aside + "-3"));
}

TEST_F(UserDefaultsTest, LosesNothingWhenAnUnreadableFileCannotBeSetAside)
{
    auto missing = m_path + "-missing";
    ASSERT_TRUE(replace(m_path, "precious"));
    m_host.files().markUnreadable(m_path);
    m_host.files().markUnreadable(missing);

    fail(Operation::setAside);
    EXPECT_FALSE(replace(m_path, "new"));
    EXPECT_EQ(*m_host.files().read(m_path), "precious");
    fail(Operation::replace);
    EXPECT_FALSE(replace(m_path, "new"));
    EXPECT_EQ(*m_host.files().read(m_aside), "precious");
    failNothing();
    EXPECT_TRUE(replace(m_path, "new"));
    EXPECT_TRUE(replace(missing, "new"));
    EXPECT_EQ(*m_host.files().read(m_path), "new");
    EXPECT_EQ(*m_host.files().read(m_aside), "precious");
}

TEST_F(UserDefaultsTest, AChangeDuringAWriteIsNotForgotten)
{
    m_host.files().setAnswersLate(true);
    m_defaults.setObject("theme", "Blue");
    std::vector<bool> answers;
    auto keep = [&](bool success) { answers.push_back(success); };
    m_defaults.synchronize(keep);
    m_defaults.setObject("theme", "Red");
    EXPECT_TRUE(answers.empty());
    m_host.files().answer();
    EXPECT_EQ(answers, std::vector<bool>{true});

    fail(Operation::replace);
    m_defaults.synchronize(keep);
    m_host.files().answer();
    failNothing();
    m_defaults.synchronize(keep);
    m_host.files().answer();
    EXPECT_EQ(answers, (std::vector<bool>{true, false, true}));
    m_defaults.reset();
    EXPECT_EQ(*m_defaults.object("theme")->string(), "Red");
}

TEST_F(UserDefaultsTest, AnUnreadableFileIsSetAsideOnceHoweverLateTheAnswers)
{
    auto replaceLater = [this](std::string_view bytes) {
        m_host.files().replace(m_path, bytes, [](const auto&) {});
    };
    ASSERT_TRUE(replace(m_path, "precious"));
    m_host.files().markUnreadable(m_path);
    m_host.files().setAnswersLate(true);
    fail(Operation::replace);
    replaceLater("one");
    m_host.files().answer();

    failNothing();
    replaceLater("two");
    replaceLater("three");
    m_host.files().answer();
    replaceLater("four");
    EXPECT_EQ(*m_host.files().read(m_aside), "precious");
    EXPECT_FALSE(m_host.files().exists(m_aside + "-2"));
    EXPECT_EQ(*m_host.files().read(m_path), "four");
}

} // namespace
} // namespace velmorath
