#include "ListTest.h"

namespace velmorath {
namespace {

class NoteLayoutTest : public ListTest {
protected:
    const UITextView& open()
    {
        start({"One"});
        tapBesideWords(0);
        host.advance(0.5);
        return *dynamic_cast<VistaNoteViewController&>(*presented()).testo.lock();
    }
};

TEST_F(NoteLayoutTest, TheTextHasItsMarginsOnEveryScreen)
{
    const UITextView& text = open();
    EXPECT_EQ(text.frame(), CGRectMake(16, 16, 288, 448));
    host.resize({1200, 800});
    host.draw();
    EXPECT_EQ(text.frame(), CGRectMake(250, 16, 700, 712));
    tap({300, 200});
    host.draw();
    EXPECT_EQ(host.textInput().frame(), CGRectMake(250, 72, 700, 712));
    host.textInput().replaceText("Uno");
    tap({1172, 28});
    host.advance(0.5);
    EXPECT_EQ(notes(), (Lines{"Uno"}));
}

TEST_F(NoteLayoutTest, AWindowWithoutRoomLeavesNoText)
{
    const UITextView& text = open();
    host.resize({20, 60});
    host.draw();
    EXPECT_TRUE(text.frame().isEmpty());
}

} // namespace
} // namespace velmorath
