#include "KeyedArchiver.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class SharingTest : public ListTest {
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
        host.advance(0.5);
    }
    bool isTold(const std::string& what)
    {
        const bool isThere = host.draw().text(what);
        host.press(HostKey::escape);
        host.advance(0.5);
        return isThere && !presented();
    }
    void put(const std::string& file) { host.documents().setFile(std::optional(file)); }
};

TEST_F(SharingTest, SharesTheListAsATextAndSavesItAsItIs)
{
    start({"One", "x Two"});
    choose("Share list");
    EXPECT_EQ(host.documents().shared(), "- [ ] One\n- [x] Two\n");
    EXPECT_FALSE(presented());
    host.documents().setHowShared(Documents::Shared::copied);
    choose("Share list");
    EXPECT_TRUE(isTold("The list is on the clipboard."));

    choose("Save a copy");
    EXPECT_EQ(host.documents().saved(), KeyedArchiver::archivedData(list().arrayNote));
    EXPECT_TRUE(host.documents().savedName().starts_with("velmorath-2"));
    EXPECT_TRUE(host.documents().savedName().ends_with(".archive"));
    host.documents().setSaveError(Error{"the disk is full"});
    choose("Save a copy");
    EXPECT_TRUE(isTold("The copy could not be saved."));
    choose("Cancel");
    EXPECT_FALSE(presented());
}

TEST_F(SharingTest, WhatTheListDoesNotHaveComesOnTopAsOneStep)
{
    start({"One", "x Two"});
    put("- [ ] New\n- [x] Two\n- [ ] Newer\n");
    takeLines();
    choose("Open a copy");
    EXPECT_EQ(saved(), (Lines{"New", "Newer", "One", "x Two"}));
    EXPECT_EQ(badge(), 3);
    EXPECT_EQ(shown(), (Lines{"New", "Newer", "One", "x Two"}));
    host.press(HostKey::undo);
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"One", "x Two"}));
    EXPECT_EQ(badge(), 1);
    host.press(HostKey::redo);
    host.advance(1);
    EXPECT_EQ(saved(), (Lines{"New", "Newer", "One", "x Two"}));
    choose("Open a copy");
    EXPECT_TRUE(isTold("The list has all of its notes already."));
    EXPECT_EQ(countLines("error : "), 0u);
}

TEST_F(SharingTest, WhatCannotBeReadIsToldAndChangesNothing)
{
    start({"One"});
    for (const std::string& file : {std::string("bplist00 broken"), std::string("\xFF")}) {
        put(file);
        takeLines();
        choose("Open a copy");
        EXPECT_TRUE(isTold("The file cannot be read."));
        EXPECT_EQ(saved(), (Lines{"One"}));
    }
    host.documents().setFile(Error{"no permission"});
    choose("Open a copy");
    EXPECT_TRUE(isTold("The file cannot be read."));
    host.documents().setFile(std::optional<std::string>());
    choose("Open a copy");
    EXPECT_FALSE(presented()) << "nothing was chosen";
    EXPECT_EQ(filesInDocuments(), (Lines{"noteSalvate.archive"}));
}

} // namespace
} // namespace velmorath
