#include "Bundle.h"
#include "ScreensWalk.h"
#include <set>

namespace velmorath {
namespace {

/// Compares the tables with all that the screens show and tell.
class LanguagesTest : public ScreensWalk {
protected:
    /// What is met on a walk through every screen, in order.
    Lines meet(const std::string& language)
    {
        m_met.clear();
        host.locale().setPreferredLanguages({language});
        relaunch();
        walk({375, 667}, true);
        changeNotes();
        const Lines& announced = host.effects().announced();
        // What happened comes before the note that it happened to.
        for (; m_heard < announced.size(); ++m_heard)
            m_met.push_back(announced[m_heard].substr(0, announced[m_heard].find(',')));
        return m_met;
    }
    StringsTable table(const std::string& language)
    {
        const auto path = host.files().resourceDirectory() + "/strings/" + language + ".strings";
        return parseStringsTable(*host.files().read(path));
    }

private:
    /// Whatever is announced.
    void changeNotes()
    {
        host.quit();
        start({"One", "Two"});
        host.press(HostKey::down);
        host.press(HostKey::down);
        host.press(HostKey::up, false, true);
        for (const HostKey key :
            {HostKey::undo, HostKey::undo, HostKey::redo, HostKey::space, HostKey::space, HostKey::remove}) {
            host.advance(1);
            look("");
            host.press(key);
        }
        list().nuovoArrayNote(list().arrayNote);
        // What a window's desktop says for it.
        m_met.push_back(Bundle::main().localizedString(
            "The last changes could not be saved. Velmorath keeps trying while it is open."));
    }
    void look(const std::string&) override
    {
        for (const std::string& text : host.draw().texts())
            m_met.push_back(text);
        if (host.textInput().isEditing())
            m_met.push_back(host.textInput().traits().label);
        listen(host.client().accessibilityTree());
        for (const auto& note : list().arrayNote)
            m_notes.insert({note->text.value_or(""), note->data.value_or("")});
    }
    void listen(const AccessibilityElement& element)
    {
        m_met.insert(m_met.end(), {element.label, element.value});
        // Before a name, and what was done to a note.
        if (const auto colon = element.label.find(": "); colon != std::string::npos) {
            m_met.push_back(element.label.substr(0, colon) + ": %1");
            if (element.label.ends_with(" Two"))
                m_met.push_back(element.label.substr(colon + 2, element.label.size() - colon - 6));
        }
        m_met.insert(m_met.end(), element.actions.begin(), element.actions.end());
        for (const AccessibilityElement& child : element.children)
            listen(child);
    }

    Lines m_met;
    std::size_t m_heard = 0;

protected:
    std::set<std::string> m_notes;
};

/// A text with the numbers that are met first in its places. Other values are met as they stand here.
std::string filledIn(std::string words)
{
    if (words.find("%2") == std::string::npos)
        return words;
    for (const std::string number : {"1", "2"})
        words.replace(words.find("%" + number), 2, number);
    return words;
}

TEST_F(LanguagesTest, EveryTextIsTranslatedAndEveryTranslationIsMet)
{
    const Lines english = meet("en");
    std::set<std::string> neverTranslated(english.begin(), english.end());
    for (const std::string language : {"it", "fr", "es", "pt", "de", "ja"}) {
        const Lines translated = meet(language);
        ASSERT_EQ(translated.size(), english.size()) << language;
        std::set<std::pair<std::string, std::string>> pairs;
        std::set<std::string> same;
        for (std::size_t i = 0; i < english.size(); ++i) {
            pairs.emplace(english[i], translated[i]);
            if (english[i] == translated[i])
                same.insert(english[i]);
        }
        for (const auto& [key, text] : table(language)) {
            EXPECT_TRUE(pairs.contains({filledIn(key), filledIn(text)})) << language << ": " << key;
        }
        std::erase_if(neverTranslated,
            [&](const std::string& text) { return m_notes.contains(text) || !same.contains(text); });
    }
    Lines found(neverTranslated.begin(), neverTranslated.end());
    // What the program's makers never translated, and names.
    EXPECT_EQ(found,
        (Lines{"Black", "Blue", "Could Not Send Email", "Failure", "Green", "Loading", "Mixed", "No", "OK",
            "Phone,Test phone,Headless,1.0   Velmorath  Free", "Pull apart to add item", "Red", "Success",
            "Velmorath", "Violet", "Yellow", "Yes",
            "Your device could not send e-mail.  Please check e-mail configuration and try again.", "close",
            "next", "\u2713", "\u2714\uFE0E", "\u2717", "\u2718"}));
}

} // namespace
} // namespace velmorath
