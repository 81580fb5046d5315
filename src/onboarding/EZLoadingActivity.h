#pragma once

#include "UIViewController.h"
#include <optional>
#include <string>

namespace velmorath {

/// One small box in the middle of the screen: that something is going on, then how it ended. Operations
/// return true when they did what was asked, and false after a diagnostic line that says why not. Main
/// thread only.
class EZLoadingActivity {
public:
    /// The look of the boxes that are shown from now on. Each value can be set, and has its first one from
    /// its first use on. Lengths in points.
    struct Settings {
        static CGColor& BackgroundColor();
        static CGColor& ActivityColor();
        static CGColor& TextColor();
        static std::string& FontName();
        static std::string& SuccessIcon();
        static std::string& FailIcon();
        static std::string& SuccessText();
        static std::string& FailText();
        static CGColor& SuccessColor();
        static CGColor& FailColor();
        /// At first a part of the screen's width as it is when the screen is held upright.
        static CGFloat& ActivityWidth();
        static CGFloat& ActivityHeight();
        /// Which part of the screen's width a box takes.
        static CGFloat WidthDivision();
        static bool& ShadowEnabled();
        /// Over everything that is presented, in the program's first window.
        static bool& LoadOverApplicationWindow();
        static bool& DarkensBackground();
    };

    /// Shows a box over the screen on top. `disableUI` switches off touches until the box ends.
    static bool show(const std::string& text, bool disableUI);
    /// Shows a box in this controller's view.
    static bool showOnController(
        const std::string& text, bool disableUI, const std::shared_ptr<UIViewController>& controller);
    /// Shows a box that ends by itself, with success, after so many seconds.
    static bool showWithDelay(const std::string& text, bool disableUI, double seconds);
    /// Ends the box, with a mark for success or failure if it is told which.
    static bool hide(std::optional<bool> success, bool animated);

    /// The view of the last controller that is presented. That there is none is fatal.
    static std::shared_ptr<UIView> topMostView();
};

} // namespace velmorath
