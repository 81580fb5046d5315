#include "HeadlessImage.h"
#include "ScreenTest.h"
#include "UIActivityIndicatorView.h"
#include "UIButton.h"
#include "UIImageView.h"
#include "UILabel.h"
#include "UIPageControl.h"

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
    CGFloat alphaOf(const std::string& text)
    {
        const DrawingRecorder drawing = host.draw();
        const DrawingCommand* command = drawing.text(text);
        return command ? command->alpha : -1;
    }
};

} // namespace

TEST_F(UIViewsTest, ALabelShrinksALineThatIsTooLong)
{
    const auto label = add<UILabel>(CGRectMake(0, 0, 120, 40));
    label->setFont(UIFont::systemFont(20));
    const auto size = [&](const std::string& text) {
        label->setText(text);
        return drawn(DrawingCommand::Kind::text).at(0).textStyle.font.size;
    };
    EXPECT_EQ(size(std::string(20, 'a')), 20);
    label->setMinimumScaleFactor(0.25);
    EXPECT_EQ(size(std::string(10, 'a')), 20);
    EXPECT_NEAR(size(std::string(20, 'a')), 10, 0.001);
    EXPECT_NEAR(size(std::string(200, 'a')), 5, 0.001);
}

TEST_F(UIViewsTest, ATransitionFadesFromTheOldTextIntoTheNewOne)
{
    const auto label = add<UILabel>(CGRectMake(0, 0, 200, 40));
    label->setText("before");
    label->layer().addTransition({1});
    label->setText("after");
    EXPECT_EQ(alphaOf("before"), 1);
    host.advance(0.5);
    EXPECT_NEAR(alphaOf("before"), 0.5, 0.05);
    EXPECT_NEAR(alphaOf("after"), 0.5, 0.05);
    host.advance(0.6);
    EXPECT_EQ(alphaOf("before"), -1);
    EXPECT_EQ(alphaOf("after"), 1);
    EXPECT_EQ(framesInASecond(), 0);

    label->layer().addTransition({0});
    label->setText("at once");
    EXPECT_EQ(host.draw().texts(), std::vector<std::string>{"at once"});
}

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

TEST_F(UIViewsTest, APictureFitsIntoItsView)
{
    const auto image = add<UIImageView>(CGRectMake(10, 20, 100, 100));
    const auto place = [&](CGSize pixels, CGFloat scale) {
        image->setImage(std::make_shared<UIImage>(std::make_shared<HeadlessImage>(pixels), scale));
        return drawn(DrawingCommand::Kind::image).at(0).rect;
    };
    EXPECT_EQ(place({400, 200}, 1), CGRectMake(10, 45, 100, 50));
    EXPECT_EQ(place({20, 40}, 2), CGRectMake(35, 20, 50, 100));
}

TEST_F(UIViewsTest, AButtonShowsItsBackgroundWhileItIsHeldDown)
{
    const auto button = add<UIButton>(CGRectMake(20, 20, 200, 50));
    button->setHighlightedBackgroundImage(UIImage::filled({1, 1}, UIColor::red()));
    EXPECT_TRUE(drawn(DrawingCommand::Kind::image).empty());
    Finger finger(host, {100, 40});
    const auto pictures = drawn(DrawingCommand::Kind::image);
    ASSERT_EQ(pictures.size(), 1u);
    EXPECT_EQ(pictures[0].rect, button->frame());
    EXPECT_EQ(pictures[0].color, UIColor::red());
    finger.lift();
    EXPECT_TRUE(drawn(DrawingCommand::Kind::image).empty());
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

} // namespace velmorath
