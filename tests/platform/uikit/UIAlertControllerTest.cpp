#include "UIAlertController.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class UIAlertControllerTest : public ListTest {
protected:
    std::shared_ptr<UIAlertController> ask(const Lines& buttons)
    {
        auto alert = std::make_shared<UIAlertController>("Question", std::nullopt);
        for (const std::string& button : buttons)
            alert->addAction(
                {button, button == "No" ? UIAlertActionStyle::destructive : UIAlertActionStyle::standard,
                    [this, button] { m_answers.push_back(button); }});
        list().present(alert, true);
        return alert;
    }
    CGPoint middleOf(const std::string& text)
    {
        const DrawingRecorder drawn = host.draw();
        const DrawingCommand* found = drawn.text(text);
        return found ? found->rect.center() : CGPoint{-1, -1};
    }

    Lines m_answers;
};

TEST_F(UIAlertControllerTest, TwoButtonsStandSideBySide)
{
    start({"One"});
    ask({"No", "Yes"});
    host.advance(0.05);
    EXPECT_EQ(middleOf("Yes").y, middleOf("No").y);
    EXPECT_LT(middleOf("No").x, middleOf("Yes").x);
    tap(middleOf("Yes"));
    EXPECT_TRUE(m_answers.empty()) << "it is still fading in";
    host.advance(0.3);
    EXPECT_TRUE(host.draw().text("One")) << "the list stays in sight";
    tap({240, 30});
    EXPECT_EQ(countLines("----👍👍👍👍👍👍👍👍 didSelectRowAt"), 0u);
    takeLines();
    tap(middleOf("Yes"));
    EXPECT_TRUE(m_answers.empty());
    host.advance(0.3);
    EXPECT_EQ(m_answers, (Lines{"Yes"}));
    EXPECT_FALSE(presented());
    EXPECT_EQ(countLines("cè qualcosa"), 0u) << "the list was never away";
}

TEST_F(UIAlertControllerTest, EnterAndSpacePressTheStandardButtonUnlessTheyArePointedAtAnother)
{
    start({"One"});
    for (const bool tabs : {false, true}) {
        for (const HostKey key : {HostKey::enter, HostKey::space}) {
            ask({"No", "Yes"});
            host.advance(0.5);
            if (tabs)
                host.press(HostKey::tab);
            host.advance(0.1);
            host.press(key);
            host.advance(0.5);
        }
    }
    EXPECT_EQ(m_answers, (Lines{"Yes", "Yes", "No", "No"}));
}

TEST_F(UIAlertControllerTest, ItsLinesAreSeenInAWindowOfAnySize)
{
    start({"One"});
    for (const auto style : {UIAlertControllerStyle::alert, UIAlertControllerStyle::actionSheet}) {
        const auto alert = std::make_shared<UIAlertController>("Question", std::nullopt, style);
        alert->addAction({"OK", UIAlertActionStyle::standard, {}});
        list().present(alert, true);
        host.advance(0.5);
        for (const CGSize size : {CGSize{375, 667}, CGSize{320, 536}, CGSize{321, 537}}) {
            host.resize(size);
            host.advance(0.1);
            const CGRect box = alert->view()->subviews().front()->frame();
            // They are half a point high, and begin at whole ones of the box.
            EXPECT_EQ(box.origin.x, std::floor(box.origin.x));
            EXPECT_EQ(box.origin.y, std::floor(box.origin.y));
            EXPECT_NEAR(box.midX(), size.width / 2, 1);
            if (style == UIAlertControllerStyle::alert)
                EXPECT_NEAR(box.midY(), size.height / 2, 1);
            else
                EXPECT_NEAR(box.maxY(), size.height - 12, 1);
        }
        host.press(HostKey::escape);
        host.advance(0.5);
    }
}

TEST_F(UIAlertControllerTest, OneAtATimeAndTypingEndsBefore)
{
    start({"One"});
    tapWords(0);
    host.textInput().replaceText("Uno");
    const auto first = ask({"OK"});
    EXPECT_FALSE(host.textInput().isEditing());
    EXPECT_EQ(saved(), (Lines{"Uno"}));
    ask({"Second"});
    EXPECT_EQ(presented(), first);
}

} // namespace
} // namespace velmorath
