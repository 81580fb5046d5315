#include "Bundle.h"
#include "SettingsTest.h"
#include <set>

namespace velmorath {
namespace {

TEST_F(SettingsTest, EveryLanguageTranslatesEveryText)
{
    // The last ones are for those who do not see the screen.
    const std::set<std::string> expected{"Watch tutorial", "Pull to add item", "Release to add item",
        "Contact Us", "Rate App", "Settings", "Privacy policy", "Icon badge", "Sound effect", "Vibration",
        "Theme", "Select theme", "Notes", "Note", "Date", "Empty note", "Completed", "Add note",
        "Reorder notes", "Information", "Close", "Save", "Edit", "Complete", "Reopen", "Delete", "Move up",
        "Move down", "Scroll up", "Scroll down", "Previous page", "Next page", "Page %1 of %2", "In progress",
        "Message", "On", "Off", "Tutorial", "Edit date", "Insert below", "Open note", "Completed note",
        "Hourglass", "Diary", "next", "close", "Cancel", "Send",
        "Pull the list down to add a note. Swipe a note to the right to complete it, to the left to delete "
        "it.",
        "Pull two notes apart to insert a note between them."};
    for (const std::string language : {"it", "fr", "es", "pt", "de", "ja"}) {
        const auto bytes =
            host.files().read(host.files().resourceDirectory() + "/strings/" + language + ".strings");
        ASSERT_TRUE(bytes) << language;
        EXPECT_EQ(std::count(bytes->begin(), bytes->end(), '\n'), expected.size()) << language;
        std::set<std::string> keys;
        for (const auto& [key, text] : parseStringsTable(*bytes)) {
            keys.insert(key);
            EXPECT_FALSE(text.empty()) << language << ": " << key;
        }
        EXPECT_EQ(keys, expected) << language;
    }
}

TEST_F(SettingsTest, TheScreensSpeakTheUsersLanguage)
{
    host.locale().setPreferredLanguages({"de-AT"});
    start({"Eins"}, "Red");
    openOptions();
    EXPECT_TRUE(host.draw().text("Einstellungen"));
    EXPECT_EQ(titles().back(), "Farbschema    :    Red");
    tapRow(3);
    EXPECT_TRUE(host.draw().text("Farbschema wählen"));
    EXPECT_EQ(titles().front(), "Red");
}

} // namespace
} // namespace velmorath
