#include "NFXIntroViewController.h"
#include "Bundle.h"
#include "FatalError.h"
#include "HostKey.h"
#include "Print.h"
#include "UIApplication.h"
#include "UIImageView.h"
#include "UIScreen.h"

namespace velmorath {

namespace {

std::any pictureNamed(const std::string& name, std::string_view description)
{
    std::shared_ptr<UIImage> image = UIImage::named(name, "jpg", 1);
    if (!image)
        fatalError("The picture " + name + ".jpg is missing");
    image->setAccessibilityLabel(Bundle::main().localizedString(description));
    return image;
}

std::shared_ptr<UIImage> makeHighlightImage()
{
    std::shared_ptr<UIImage> image = UIImage::blackPixel();
    if (!image)
        fatalError("The picture behind the pressed button cannot be made");
    return image;
}

/// The pages as one thing, which is what the page that is shown says.
class Strip : public UIScrollView {
public:
    using UIScrollView::UIScrollView;

    bool canBecomeFocused() const override { return true; }
    std::optional<UIAccessibilityInfo> accessibilityInfo() override
    {
        std::optional<UIAccessibilityInfo> info = UIScrollView::accessibilityInfo();
        info->element.role = AccessibilityRole::image;
        return info;
    }
};

} // namespace

void presentTutorial(UIViewController& presenter, delegatoTutorialChiuso& delegate)
{
    const std::vector<std::any> images{
        pictureNamed("1info",
            "Pull the list down to add a note. Swipe a note to the right to complete it, to the left to delete it. The keys are Control+N (N on a web page), Space and Delete. F2 edits a note, Enter opens it."),
        pictureNamed("2info",
            "Pull two notes apart to insert a note between them. The keys are Control+Shift+N (Shift+N on a web page). Alt+Up and Alt+Down move a note.")};
    const auto tutorial = std::make_shared<NFXIntroViewController>();
    tutorial->initWithViews(images);
    tutorial->delegate2 = &delegate;
    tutorial->setModalPresentationStyle(UIModalPresentationStyle::fullScreen);
    presenter.present(tutorial, true);
}

NFXIntroViewController::NFXIntroViewController()
    : _scrollview(std::make_shared<Strip>(UIScreen::main().bounds()))
    , _button(std::make_shared<UIButton>(UIScreen::main().bounds()))
    , _pgcontrol(std::make_shared<UIPageControl>(UIScreen::main().bounds()))
{
}

NFXIntroViewController::~NFXIntroViewController()
{
    // A finger that is still down may keep the strip.
    _scrollview->setScrollDelegate(nullptr);
}

void NFXIntroViewController::initWithViews(const std::vector<std::any>& images)
{
    print("initWithViews : (" + std::to_string(images.size()) + " values)");
    view()->setBackgroundColor(CGColor::gray(0));
    view()->setAccessibilityLabel(Bundle::main().localizedString("Tutorial"));
    _images = images;
    const std::shared_ptr<UIImage> highlightImage = makeHighlightImage();
    makeStrip();
    makePageControl();
    makeButton(highlightImage);
    placeViews();
    print("_pgcontrol : " + description(_pgcontrol->frame().size.height));
    makePages();
    placePages();
    tellPage();
}

void NFXIntroViewController::makeStrip()
{
    _scrollview->setBackgroundColor(CGColor::gray(0));
    _scrollview->setPagingEnabled(true);
    _scrollview->setBounces(false);
    _scrollview->setScrollDelegate(this);
    _scrollview->layer().setBorder(0, CGColor::gray(0.8));
    _scrollview->setShowsHorizontalScrollIndicator(false);
    _scrollview->layer().setCornerRadius(2);
    view()->addSubview(_scrollview);
}

void NFXIntroViewController::makePageControl()
{
    _pgcontrol->setFrame({});
    _pgcontrol->setPageIndicatorTintColor(CGColor::gray(0.8));
    _pgcontrol->setCurrentPageIndicatorTintColor(CGColor::gray(0.6));
    _pgcontrol->setNumberOfPages(static_cast<int>(_images.size()));
    _pgcontrol->setCurrentPage(0);
    _pgcontrol->sizeToFit();
    view()->addSubview(_pgcontrol);
}

void NFXIntroViewController::makeButton(std::shared_ptr<UIImage> highlightImage)
{
    _button = std::make_shared<UIButton>(CGRectMake(0, 0, 250, 50));
    _button->addTarget([this](UIControl&) { ButtonPushed(); });
    _button->setTitleColor(CGColor::gray(0.4));
    setButtonText(nextText);
    _button->setHighlightedBackgroundImage(std::move(highlightImage));
    _button->setClipsToBounds(true);
    _button->layer().setCornerRadius(4);
    _button->layer().setBorder(0.5, CGColor::gray(0.8));
    view()->addSubview(_button);
}

void NFXIntroViewController::setButtonText(const std::string& text)
{
    _button->setTitle(text);
    _button->setAccessibilityLabel(Bundle::main().localizedString(text == startText ? "Close" : "Next"));
}

void NFXIntroViewController::makePages()
{
    for (const std::any& element : _images) {
        const auto* image = std::any_cast<std::shared_ptr<UIImage>>(&element);
        if (!image || !*image)
            fatalError("A page of the tutorial is not a picture");
        const auto page = std::make_shared<UIImageView>();
        page->setClipsToBounds(true);
        page->setImage(*image);
        _scrollview->addSubview(page);
    }
}

void NFXIntroViewController::placeViews()
{
    m_placedSize = view()->bounds().size;
    const CGFloat width = m_placedSize.width / 3 + m_placedSize.width / 3;
    const CGFloat height = m_placedSize.height / 3 + m_placedSize.height / 3;
    const CGPoint center = view()->bounds().center();
    _scrollview->setFrame(CGRectMake(0, 0, width, height));
    _scrollview->setCenter({center.x, center.y - 50});
    _scrollview->setContentSize({width * static_cast<CGFloat>(_images.size()), height});

    const CGSize dots = _pgcontrol->frame().size;
    const CGFloat belowStrip = _scrollview->frame().maxY();
    _pgcontrol->setFrame(CGRectMake(center.x - dots.width / 2, belowStrip, dots.width, dots.height));
    const CGSize button = _button->frame().size;
    _button->setFrame(
        CGRectMake(center.x - button.width / 2, belowStrip + dots.height, button.width, button.height));
}

void NFXIntroViewController::placePages()
{
    const CGSize page = _scrollview->bounds().size;
    CGFloat x = 0;
    for (const auto& imageView : _scrollview->subviews()) {
        imageView->setFrame(CGRectMake(x, 0, page.width, page.height));
        x += page.width;
    }
}

void NFXIntroViewController::viewDidLayoutSubviews()
{
    // The window changed its size: everything keeps its proportions, and the page stays.
    if (_images.empty() || view()->bounds().size == m_placedSize)
        return;
    const std::int64_t page = currentPage(*_scrollview);
    placeViews();
    placePages();
    _scrollview->setContentOffset({static_cast<CGFloat>(page) * _scrollview->frame().size.width, 0});
}

std::int64_t NFXIntroViewController::currentPage(const UIScrollView& scrollView)
{
    const double page = std::round(scrollView.contentOffset().x / scrollView.frame().size.width);
    constexpr double limit = 9223372036854775808.0;
    if (!std::isfinite(page) || page < -limit || page >= limit)
        fatalError("The tutorial's page is no number that a page can have");
    return static_cast<std::int64_t>(page);
}

void NFXIntroViewController::scrollViewDidScroll(UIScrollView& scrollView)
{
    const std::int64_t page = currentPage(scrollView);
    setButtonText(page == lastPage() ? startText : nextText);
    const std::int64_t pageBefore = _pgcontrol->currentPage();
    _pgcontrol->setCurrentPage(page);
    if (_pgcontrol->currentPage() == pageBefore)
        return;
    tellPage();
    UIApplication::shared().announce(_scrollview->accessibilityLabel());
}

void NFXIntroViewController::tellPage()
{
    const auto page = static_cast<std::size_t>(_pgcontrol->currentPage());
    if (page < _images.size())
        _scrollview->setAccessibilityLabel(
            std::any_cast<const std::shared_ptr<UIImage>&>(_images[page])->accessibilityLabel());
}

void NFXIntroViewController::turnTo(std::int64_t page)
{
    const CGRect strip = _scrollview->frame();
    _scrollview->scrollRectToVisible(CGRectMake(strip.size.width * static_cast<CGFloat>(page), strip.origin.y,
                                         strip.size.width, strip.size.height),
        true);
}

bool NFXIntroViewController::keyPressed(const HostKeyPress& press)
{
    const std::int64_t page = currentPage(*_scrollview);
    if (press.key == HostKey::right)
        turnTo(std::min(lastPage(), page + 1));
    else if (press.key == HostKey::left)
        turnTo(std::max<std::int64_t>(0, page - 1));
    else
        return false;
    return true;
}

void NFXIntroViewController::ButtonPushed()
{
    print("ButtonPushed");
    const std::int64_t page = currentPage(*_scrollview);
    print("numero : " + std::to_string(lastPage()) + "   page : " + std::to_string(page));
    if (page != lastPage()) {
        print("if page_ != numero");
        turnTo(page + 1);
        return;
    }
    print("self.dismissViewControllerAnimated");
    dismiss(false, [this] {
        if (delegate2)
            delegate2->chiusoTutorial();
    });
}

} // namespace velmorath
