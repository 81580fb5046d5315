#include "Bundle.h"
#include "HeadlessHost.h"
#include "ReplaceFile.h"
#include "TemporaryFolder.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

TEST(StringsTableTest, ReadsEntriesCommentsAndEscapes)
{
    auto table = parseStringsTable("\xEF\xBB\xBF/* one\n \"no\" = \"no\"; */ // two\n"
                                   "\"Done\" = \"Fatto\";\"a\"=\"b\" ; // three\r\n"
                                   "\"say \\\"x\\\"\\n\\t\\\\\"\n=\n\"\\u00E8\\U597d\";\n"
                                   "\"twice\" = \"1\"; \"twice\" = \"2\"; \"bad\xFF\" = \"\\uD83D\";");
    EXPECT_EQ(table,
        (StringsTable{{"Done", "Fatto"}, {"a", "b"}, {"say \"x\"\n\t\\", "è好"}, {"twice", "2"},
            {"bad\uFFFD", "\uFFFD"}}));
}

TEST(StringsTableTest, LeavesOutBrokenLinesOnly)
{
    auto table =
        parseStringsTable("\"a\" = \"unclosed\nnonsense\n\"b\" = \"1\"\n\"c\" \"2\";\n\"d\" = ;\n"
                          "\"e\" = \"\\q\";\n\"f\" = \"\\u12G4\";\n\"good\" = \"yes\";\n\"g\" = \"\\");
    EXPECT_EQ(table, (StringsTable{{"good", "yes"}}));
    EXPECT_TRUE(parseStringsTable("/* \"a\" = \"b\";").empty());
}

class BundleTest : public testing::Test {
protected:
    void add(const std::string& name, std::string_view contents)
    {
        ASSERT_FALSE(replaceFile(m_host.files(), m_folder.path() + name, contents));
    }

    std::string inLanguages(std::vector<std::string> languages, std::string_view key)
    {
        m_host.locale().setPreferredLanguages(std::move(languages));
        m_bundle.reset();
        return m_bundle.localizedString(key);
    }

    TemporaryFolder m_folder;
    HeadlessHost m_host{m_folder.path()};
    Bundle m_bundle;
};

TEST_F(BundleTest, SpeaksTheFirstLanguageThatHasATable)
{
    add("/strings/pt.strings", "\"Done\" = \"Pronto\";");
    add("/strings/de.strings", "\"Done\" = \"Fertig\";");
    EXPECT_EQ(inLanguages({"xx", "pt-BR", "de"}, "Done"), "Pronto");
    EXPECT_EQ(inLanguages({"de-Latn-AT"}, "Done"), "Fertig");
    EXPECT_EQ(inLanguages({"en-GB", "de"}, "Done"), "Done");
    EXPECT_EQ(inLanguages({"de"}, "Untranslated"), "Untranslated");
    EXPECT_EQ(inLanguages({}, "Done"), "Done");
    EXPECT_EQ(inLanguages({"../strings/de", "", "-"}, "Done"), "Done");
}

} // namespace
} // namespace velmorath
