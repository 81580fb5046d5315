#include "Bundle.h"
#include "FilesOnDisk.h"
#include "HeadlessHost.h"
#include <gtest/gtest.h>

namespace velmorath {
namespace {

TEST(StringsTableTest, LeavesOutBrokenLinesOnly)
{
    const auto table =
        parseStringsTable("\n\"Done\" = \"Fatto\";\n\"a\" = \"unclosed\nnonsense\n\"\n\";\n\" = \";\n"
                          "\"c\" \"2\";\n\"d\" = ;\n\"f\" = \";\n\"pi\u00F9\" = \"\u597D\";");
    EXPECT_EQ(table, (StringsTable{{"Done", "Fatto"}, {"pi\u00F9", "\u597D"}}));
}

class BundleTest : public testing::Test {
protected:
    void add(const std::string& name, std::string_view contents)
    {
        ASSERT_FALSE(replaceFile(m_host.files(), m_host.files().resourceDirectory() + name, contents));
    }

    std::string inLanguages(std::vector<std::string> languages, std::string_view key)
    {
        m_host.locale().setPreferredLanguages(std::move(languages));
        m_bundle.reset();
        return m_bundle.localizedString(key);
    }

    HeadlessFiles m_scratch{{}};
    HeadlessHost m_host{*m_scratch.documentDirectory()};
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
