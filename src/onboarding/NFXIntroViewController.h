#pragma once

#include "UIButton.h"
#include "UIPageControl.h"
#include "UIScrollView.h"
#include "UIViewController.h"
#include "delegatoTutorialChiuso.h"
#include <any>

namespace velmorath {

/// Shows the tutorial with its two pictures over a screen. A missing picture is fatal.
void presentTutorial(UIViewController& presenter, delegatoTutorialChiuso& delegate);

/// A tutorial of pictures side by side: one is turned to with the finger or with the button below them,
/// which closes the tutorial on the last one.
class NFXIntroViewController : public UIViewController, private UIScrollViewDelegate {
public:
    NFXIntroViewController();
    ~NFXIntroViewController() override;

    /// Builds the screen. Called once, before it is presented. Each image is a std::shared_ptr<UIImage>;
    /// anything else is fatal.
    void initWithViews(const std::vector<std::any>& images);
    void ButtonPushed();
    /// The arrows turn the pages.
    bool keyPressed(const HostKeyPress&) override;

    void scrollViewDidScroll(UIScrollView&) override;
    void viewDidLayoutSubviews() override;

    const std::string nextText = "next";
    const std::string startText = "close";
    /// Outlives this screen.
    delegatoTutorialChiuso* delegate2 = nullptr;
    std::shared_ptr<UIScrollView> _scrollview;
    std::shared_ptr<UIButton> _button;
    std::shared_ptr<UIPageControl> _pgcontrol;
    std::vector<std::any> _images;

private:
    void turnTo(std::int64_t page);
    void makeStrip();
    void makePageControl();
    void makeButton(std::shared_ptr<UIImage> highlightImage);
    /// It shows the text itself, and tells it in the user's language.
    void setButtonText(const std::string&);
    void makePages();
    /// To those who do not see it.
    void tellPage();
    void placeViews();
    void placePages();
    /// The page that is nearest to being shown. A number that no page can have is fatal.
    static std::int64_t currentPage(const UIScrollView&);
    std::int64_t lastPage() const { return static_cast<std::int64_t>(_images.size()) - 1; }

    CGSize m_placedSize;
};

} // namespace velmorath
