#include "Configuration.h"
#include "ListTest.h"
#include "ScreenReader.h"

namespace velmorath {
namespace {

/// Goes everywhere and does everything with the tree alone.
class AccessibilityWalkTest : public ListTest {
protected:
    void expectScreen(const Lines& lines)
    {
        EXPECT_EQ(reader.everything(), lines);
        EXPECT_EQ(reader.faults(), Lines{});
    }

    ScreenReader reader{host};
};

TEST_F(AccessibilityWalkTest, TheFirstDay)
{
    launch();
    host.advance(1);
    expectScreen({"dialog Watch tutorial", "  heading Watch tutorial", "  button No", "  button Yes"});
    ASSERT_TRUE(reader.press("Yes"));
    const Lines first{"group Tutorial (Next page)",
        "  image Pull the list down to add a note. Swipe a note to the right to complete it, to the left to "
        "delete it.",
        "text Page 1 of 2", "button next"};
    const Lines last{"group Tutorial (Previous page)",
        "  image Pull two notes apart to insert a note between them.", "text Page 2 of 2", "button close"};
    expectScreen(first);
    EXPECT_TRUE(reader.perform("Tutorial", "Next page"));
    expectScreen(last);
    EXPECT_TRUE(reader.perform("Tutorial", "Previous page"));
    expectScreen(first);
    EXPECT_TRUE(reader.press("next"));
    expectScreen(last);
    EXPECT_TRUE(reader.press("close"));

    EXPECT_TRUE(reader.press("Add note"));
    type("New");
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"New", "Hello!"}));
    EXPECT_EQ(reader.faults(), Lines{});
}

TEST_F(AccessibilityWalkTest, ANoteIsReadAndEdited)
{
    start({"One", "Two"});
    ASSERT_TRUE(reader.press("Two"));
    expectScreen({"button Close", "heading Open note", "button Save", "area Note = Two"});
    EXPECT_TRUE(reader.press("Note"));
    EXPECT_EQ(host.textInput().traits().label, "Note");
    expectScreen({"button Close", "heading Open note", "button Save"});
    host.textInput().replaceText("Deux");
    EXPECT_TRUE(reader.press("Save"));
    EXPECT_EQ(saved(), (Lines{"One", "Deux"}));
    EXPECT_TRUE(reader.press("Deux"));
    EXPECT_TRUE(reader.press("Close"));
    EXPECT_NE((reader.read(), reader.find("Deux").identifier), 0);
    EXPECT_EQ(reader.find("Save").identifier, 0) << "the note's screen has gone";
    EXPECT_TRUE(reader.perform("Deux", "Complete"));
    EXPECT_TRUE(reader.press("Deux"));
    EXPECT_EQ(reader.everything().at(1), "heading Completed note");
}

TEST_F(AccessibilityWalkTest, SettingsMailAndLinks)
{
    start({"One"});
    ASSERT_TRUE(reader.press("Information"));
    expectScreen({"button Close", "heading Velmorath", "list Information", "  item Contact Us",
        "  item Rate App", "  item Watch tutorial", "  item Settings", "  item Privacy policy"});
    EXPECT_TRUE(reader.press("Privacy policy"));
    EXPECT_EQ(host.effects().openedAddresses(), (Lines{std::string(configuration::privacyPage)}));

    EXPECT_TRUE(reader.press("Contact Us"));
    EXPECT_EQ(reader.faults(), Lines{});
    EXPECT_TRUE(reader.press("Message"));
    EXPECT_EQ(host.textInput().traits().label, "Message");
    EXPECT_TRUE(reader.press("Send"));
    EXPECT_EQ(host.effects().openedAddresses().size(), 2u);
    host.effects().setCanSendMail(false);
    EXPECT_TRUE(reader.press("Contact Us"));
    EXPECT_EQ(reader.faults(), Lines{});
    EXPECT_TRUE(reader.press("OK"));
    EXPECT_TRUE(reader.press("Watch tutorial"));
    EXPECT_TRUE(reader.press("next"));
    EXPECT_TRUE(reader.press("close"));

    EXPECT_TRUE(reader.press("Settings"));
    expectScreen({"button Close", "heading Settings", "list Settings", "  item Icon badge = On [on]",
        "  item Sound effect = On [on]", "  item Vibration = On [on]", "  item Theme    :    Blue"});
    takeFelt();
    EXPECT_TRUE(reader.press("Sound effect"));
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
    EXPECT_EQ(reader.everything().at(4), "  item Sound effect = Off [off]");

    EXPECT_TRUE(reader.press("Theme    :    Blue"));
    EXPECT_TRUE(reader.press("Mixed"));
    expectScreen({"button Close", "heading Select theme", "list Theme", "  option Red", "  option Green",
        "  option Violet", "  option Blue", "  option Yellow", "  option Mixed *", "  option Black"});
    for (int screens = 0; screens < 3; ++screens)
        EXPECT_TRUE(reader.press("Close"));
    EXPECT_EQ(list().theme, "Mixed");
    EXPECT_EQ(list().soundEffect, "false");
    EXPECT_EQ(reader.faults(), Lines{});
}

} // namespace
} // namespace velmorath
