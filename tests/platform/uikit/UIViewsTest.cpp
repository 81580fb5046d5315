#include "ScreenTest.h"
#include "UIActivityIndicatorView.h"
#include "UIPageControl.h"
#include "UITextField.h"

namespace velmorath {

namespace {

class UIViewsTest : public ScreenTest {
protected:
    UIViewsTest() { start(); }

    std::vector<DrawingCommand> drawn(DrawingCommand::Kind kind)
    {
        std::vector<DrawingCommand> found;
        const DrawingRecorder drawing = host.draw();
        for (const DrawingCommand& command : drawing.commands()) {
            if (command.kind == kind)
                found.push_back(command);
        }
        return found;
    }
};

} // namespace

TEST_F(UIViewsTest, ASpinnerCostsFramesOnlyWhileItTurnsInSight)
{
    const auto spinner = std::make_shared<UIActivityIndicatorView>(CGRectMake(0, 0, 40, 40));
    const auto box = add<UIView>(CGRectMake(0, 0, 100, 100));
    spinner->startAnimating();
    host.advance(0.1);
    EXPECT_EQ(framesInASecond(), 0);
    box->addSubview(spinner);
    EXPECT_GT(framesInASecond(), 50);
    const auto spokes = drawn(DrawingCommand::Kind::fill);
    host.advance(0.25);
    EXPECT_NE(spokes.back().color, drawn(DrawingCommand::Kind::fill).back().color) << "it turns";

    box->removeFromSuperview();
    host.advance(0.1);
    EXPECT_EQ(framesInASecond(), 0);
    screen().addSubview(box);
    EXPECT_GT(framesInASecond(), 50);
    spinner->stopAnimating();
    host.advance(0.1);
    EXPECT_EQ(framesInASecond(), 0);
    EXPECT_TRUE(spinner->isHidden());
}

TEST_F(UIViewsTest, APageControlKeepsToThePagesThatThereAre)
{
    UIPageControl control;
    control.setNumberOfPages(3);
    control.setCurrentPage(7);
    EXPECT_EQ(control.currentPage(), 2);
    control.setNumberOfPages(2);
    EXPECT_EQ(control.currentPage(), 1);
    control.setCurrentPage(-1);
    EXPECT_EQ(control.currentPage(), 0);
    control.setNumberOfPages(0);
    control.sizeToFit();
    EXPECT_EQ(control.frame().size.width, 0);
}

TEST_F(UIViewsTest, AFieldMayBeTakenAwayByWhomItTellsOfItsEnd)
{
    struct Remover : UITextFieldDelegate {
        void textFieldDidEndEditing(UITextField& field) override { field.removeFromSuperview(); }
    } remover;
    const auto field = add<UITextField>(CGRectMake(0, 0, 200, 40));
    field->setDelegate(&remover);
    ASSERT_TRUE(field->becomeFirstResponder());
    field->removeFromSuperview();
    EXPECT_FALSE(field->superview());
    EXPECT_FALSE(host.textInput().isEditing());
}

} // namespace velmorath
