#include "UIAlertController.h"
#include "Print.h"
#include "Story.h"

namespace velmorath {
namespace {

class UIAlertControllerTest : public Story {
protected:
    void ask(const Lines& buttons)
    {
        const auto alert = std::make_shared<UIAlertController>("Question", std::nullopt);
        for (const std::string& button : buttons)
            alert->addAction(
                {button, button == "No" ? UIAlertActionStyle::destructive : UIAlertActionStyle::standard,
                    [button] { print("answered: " + button); }});
        list().present(alert, true);
    }
    void tapText(const std::string& text) { tap(host.draw().text(text)->rect.center()); }
};

TEST_F(UIAlertControllerTest, IsDeafWhileItFadesAndTheListIsInSightAndDeafUntilItIsAnswered)
{
    start({"One"});
    tellLines();
    ask({"No", "Yes"});
    host.advance(0.05);
    then("it is still fading in", [&] { tapText("Yes"); });
    then("the list", [&] { tapText("One"); });
    then("its answer, when it has faded out", [&] { tapText("Yes"); });
}

TEST_F(UIAlertControllerTest, EnterAndSpacePressTheStandardButtonUnlessTheyArePointedAtAnother)
{
    start({"One"});
    tellLines();
    for (const bool tabs : {false, true}) {
        for (const HostKey key : {HostKey::enter, HostKey::space}) {
            ask({"No", "Yes"});
            host.advance(0.5);
            if (tabs)
                host.press(HostKey::tab);
            then(tabs ? "at another button" : "at none", [&] { host.press(key); });
        }
    }
}

TEST_F(UIAlertControllerTest, ItsLinesAreSeenInTheMiddleOfAnyWindow)
{
    start({"One"});
    ask({"OK"});
    host.resize({321, 537});
    host.advance(0.5);
    // They are half a point high, and begin at whole ones of the box.
    EXPECT_EQ(presented()->view()->subviews().front()->frame(), CGRectMake(25, 214, 270, 109));
}

TEST_F(UIAlertControllerTest, OneAtATimeAndTypingEndsBefore)
{
    start({"One"});
    tapWords(0);
    host.textInput().replaceText("Uno");
    tellScreen();
    then("a question", [&] { ask({"OK"}); });
    then("another one", [&] { ask({"Second"}); });
}

} // namespace
} // namespace velmorath
