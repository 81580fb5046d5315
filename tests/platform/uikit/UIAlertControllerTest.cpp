#include "UIAlertController.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class UIAlertControllerTest : public ListTest {
protected:
    std::shared_ptr<UIAlertController> ask(std::optional<std::string> message, const Lines& buttons)
    {
        auto alert = std::make_shared<UIAlertController>("Question", std::move(message));
        for (const std::string& button : buttons)
            alert->addAction(
                {button, UIAlertActionStyle::standard, [this, button] { m_answers.push_back(button); }});
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
    ask({}, {"No", "Yes"});
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

TEST_F(UIAlertControllerTest, AnyOtherNumberStandsInAColumn)
{
    start({"One"});
    ask("With more to say", {"A", "B", "C"});
    host.advance(0.3);
    EXPECT_TRUE(host.draw().text("With more to say"));
    EXPECT_LT(middleOf("A").y, middleOf("B").y);
    EXPECT_EQ(middleOf("B").x, middleOf("C").x);
    tap(middleOf("C"));
    host.advance(0.3);
    EXPECT_EQ(m_answers, (Lines{"C"}));
}

TEST_F(UIAlertControllerTest, AButtonLeftBeforeTheFingerIsLiftedIsNotPressed)
{
    start({"One"});
    ask({}, {"No", "Yes"});
    host.advance(0.3);
    Finger finger(host, middleOf("Yes"));
    finger.moveBy({0, 120});
    finger.lift();
    host.advance(0.3);
    EXPECT_TRUE(presented());
    EXPECT_TRUE(m_answers.empty());
}

TEST_F(UIAlertControllerTest, OneAtATimeAndTypingEndsBefore)
{
    start({"One"});
    tapWords(0);
    host.textInput().replaceText("Uno");
    const auto first = ask({}, {"OK"});
    EXPECT_FALSE(host.textInput().isEditing());
    EXPECT_EQ(saved(), (Lines{"Uno"}));
    ask({}, {"Second"});
    EXPECT_EQ(presented(), first);
}

TEST_F(UIAlertControllerTest, StaysInTheMiddleWhenTheScreenTurns)
{
    start({"One"});
    ask({}, {"OK"});
    host.advance(0.3);
    host.resize({536, 320});
    host.advance(0.1);
    EXPECT_EQ(middleOf("OK").x, 268);
    tap(middleOf("OK"));
    host.advance(0.3);
    EXPECT_EQ(m_answers, (Lines{"OK"}));
}

} // namespace
} // namespace velmorath
