#include "KeyedArchiver.h"
#include "Story.h"

namespace velmorath {
namespace {

class SharingTest : public Story {
protected:
    void choose(const std::string& choice)
    {
        const CGSize size = host.screen().size();
        tap({size.width - 84, size.height - 28});
        host.advance(0.5);
        const DrawingRecorder drawn = host.draw();
        const DrawingCommand* const button = drawn.text(choice);
        ASSERT_TRUE(button) << choice;
        tap(button->rect.center());
    }
    /// Chooses it, and looks away from what it tells.
    void thenChoose(const std::string& what, const std::string& choice)
    {
        then(what, [&] { choose(choice); });
        host.press(HostKey::escape);
        host.advance(0.5);
    }
    void put(const std::string& file) { host.documents().setFile(std::optional(file)); }
};

TEST_F(SharingTest, SharesTheListAsATextAndSavesItAsItIs)
{
    start({"One", "x Two"});
    thenChoose("to a program", "Share list");
    EXPECT_EQ(host.documents().shared(), "- [ ] One\n- [x] Two\n");
    host.documents().setHowShared(Documents::Shared::copied);
    thenChoose("to the clipboard", "Share list");
    thenChoose("saved", "Save a copy");
    EXPECT_EQ(host.documents().saved(), KeyedArchiver::archivedData(list().arrayNote));
    EXPECT_TRUE(host.documents().savedName().starts_with("velmorath-2"));
    EXPECT_TRUE(host.documents().savedName().ends_with(".archive"));
    host.documents().setSaveError(Error{"the disk is full"});
    thenChoose("on a full disk", "Save a copy");
    thenChoose("nothing", "Cancel");
}

TEST_F(SharingTest, WhatTheListDoesNotHaveComesOnTopAsOneStep)
{
    start({"One", "x Two"});
    host.press(HostKey::down);
    put("- [ ] New\n- [x] Two\n- [ ] Newer\n");
    thenChoose("opened", "Open a copy");
    then("undone", [&] { host.press(HostKey::undo); });
    then("redone", [&] { host.press(HostKey::redo); });
    thenChoose("opened again", "Open a copy");
    host.documents().setFile(std::optional<std::string>());
    thenChoose("nothing was chosen", "Open a copy");
    for (const std::string& file : {std::string("bplist00 broken"), std::string("\xFF")}) {
        put(file);
        thenChoose("what cannot be read", "Open a copy");
    }
    host.documents().setFile(Error{"no permission"});
    thenChoose("what may not be read", "Open a copy");
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive"}));
    EXPECT_EQ(takeLines("error : "), Lines());
}

TEST_F(SharingTest, AFileThatIsHandedOverIsACopyAndEndsTypingButNoScreen)
{
    const auto open = [this](const std::string& text) { return host.client().documentOpened(text); };
    launch();
    EXPECT_FALSE(open("Three")) << "the offer of the tutorial is coming";
    host.quit();
    start({"One"});
    then("while a note is typed", [&] {
        tapWords(0);
        host.textInput().replaceText("Uno");
        EXPECT_TRUE(open("Two\nUno\n"));
    });
    tapBesideWords(0);
    EXPECT_FALSE(open("Three")) << "a screen is coming";
    host.advance(1);
    EXPECT_FALSE(open("Three")) << "it would hand back the list that it was given";
    then("nothing more", 1);
}

} // namespace
} // namespace velmorath
