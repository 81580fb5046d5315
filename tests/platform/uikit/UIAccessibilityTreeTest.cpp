#include "UIAccessibilityTree.h"
#include "EZLoadingActivity.h"
#include "ScreenTest.h"
#include "UIAlertController.h"
#include "UIImageView.h"
#include "UIScrollView.h"

namespace velmorath {
namespace {

class UIAccessibilityTreeTest : public ScreenTest {
protected:
    std::shared_ptr<UILabel> addLabel(const CGRect& frame, const std::string& text, UIView* around = nullptr)
    {
        auto label = std::make_shared<UILabel>(frame);
        label->setText(text);
        (around ? *around : screen()).addSubview(label);
        return label;
    }
};

TEST_F(UIAccessibilityTreeTest, TellsWhatIsInSightAndNothingElse)
{
    const auto holder = add<UIView>(CGRectMake(100, 100, 200, 200));
    addLabel(CGRectMake(0, 50, 100, 20), "third", holder.get());
    addLabel(CGRectMake(0, 0, 100, 20), "second", holder.get());
    addLabel(CGRectMake(0, 0, 100, 20), "first");
    addLabel(CGRectMake(0, 0, 100, 20), "");
    addLabel(CGRectMake(400, 0, 100, 20), "beside the window");
    addLabel(CGRectMake(0, 0, 100, 20), "hidden")->setHidden(true);
    const auto pale = add<UIView>(CGRectMake(0, 0, 100, 100));
    pale->setAlpha(0);
    addLabel(CGRectMake(0, 0, 100, 20), "in a transparent view", pale.get());
    add<UIImageView>(CGRectMake(0, 0, 100, 100));
    const auto scroller = add<UIScrollView>(CGRectMake(0, 400, 375, 100));
    scroller->setContentSize({375, 300});
    addLabel(CGRectMake(0, 80, 375, 40), "half in sight", scroller.get());
    addLabel(CGRectMake(0, 120, 375, 40), "scrolled to", scroller.get());
    tellScreen();
    then("at first", 0);
    EXPECT_EQ(reader.find("third").frame, CGRectMake(100, 150, 100, 20));
    EXPECT_EQ(reader.find("half in sight").frame, CGRectMake(0, 480, 375, 20));
    then("scrolled, and others hidden", [&] {
        scroller->setContentOffset({0, 100}), holder->setHidden(true);
    });
    EXPECT_EQ(reader.faults(), Lines{});
}

TEST_F(UIAccessibilityTreeTest, AnAlertIsAllThatCountsAndWhatLiesOverItIsToldToo)
{
    addLabel(CGRectMake(0, 0, 100, 20), "below");
    const auto alert = std::make_shared<UIAlertController>("Sure?", "It cannot be taken back.");
    bool isAnswered = false;
    alert->addAction({"Yes", UIAlertActionStyle::destructive, [&] { isAnswered = true; }});
    tellScreen();
    then("it is still fading in", 0.5, [&] {
        root().present(alert, true);
        reader.read();
        EXPECT_FALSE(reader.pressKnown("Yes"));
    });
    then("tab", [&] { host.press(HostKey::tab); });
    EZLoadingActivity::Settings::LoadOverApplicationWindow() = true;
    then("a box over it", [&] { EZLoadingActivity::show("Loading", true); });
    EXPECT_FALSE(reader.pressKnown("Yes")) << "touches are switched off";
    EZLoadingActivity::hide({}, false);
    EZLoadingActivity::Settings::LoadOverApplicationWindow() = false;
    then("answered", [&] { EXPECT_TRUE(reader.press("Yes")); });
    EXPECT_TRUE(isAnswered);
}

TEST_F(UIAccessibilityTreeTest, PressesFocusesAndForgets)
{
    int presses = 0;
    const auto button = add<UIButton>(CGRectMake(0, 0, 100, 40));
    button->setTitle("Begin");
    button->addTarget([&](UIControl&) { ++presses; });
    addLabel(CGRectMake(0, 100, 100, 20), "words");
    reader.read();
    const AccessibilityElement told = reader.find("Begin");
    EXPECT_TRUE(told.isPressable);
    EXPECT_TRUE(reader.pressKnown("Begin"));
    EXPECT_FALSE(reader.pressKnown("words"));
    EXPECT_TRUE(host.client().focusElement(told.identifier));
    EXPECT_FALSE(host.client().focusElement(reader.find("words").identifier));
    host.press(HostKey::enter);
    EXPECT_EQ(presses, 2);
    reader.read();
    EXPECT_TRUE(reader.find("Begin").isFocused);

    button->setTitle("End");
    EXPECT_FALSE(host.client().pressElement(told.identifier)) << "nobody was told that it ends";
    reader.read();
    EXPECT_EQ(reader.find("End").identifier, told.identifier);
    button->removeFromSuperview();
    EXPECT_FALSE(reader.pressKnown("End"));
    EXPECT_EQ(presses, 2);

    host.client().willTerminate();
    EXPECT_EQ(host.client().accessibilityTree(), AccessibilityElement{});
    EXPECT_FALSE(host.client().pressElement(told.identifier));
}

} // namespace
} // namespace velmorath
