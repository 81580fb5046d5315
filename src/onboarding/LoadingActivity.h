#pragma once

#include "UIActivityIndicatorView.h"
#include "UILabel.h"
#include <optional>

namespace velmorath {

/// The box of EZLoadingActivity, which makes and shows it: a spinner and a line of text, then a mark and
/// a line that tell how it ended.
class LoadingActivity : public UIView {
public:
    /// In the middle of the screen on top, which must be there. `disableUI` switches off touches until
    /// the box ends.
    LoadingActivity(const std::string& text, bool disableUI);

    /// Puts the box in sight, fading in.
    void showIn(UIView&);
    /// Takes touches up again and puts a mark in the spinner's place, with its line of text. Without a
    /// result the mark is empty and the text stays. Returns how long the result is to be read, in seconds.
    double showResult(std::optional<bool> success, bool animated);

    std::shared_ptr<UILabel> textLabel;
    std::shared_ptr<UIActivityIndicatorView> activityView;
    std::shared_ptr<UILabel> icon;
    bool UIDisabled = false;

private:
    void addShadow();
    void makeContent(const std::string& text);
    void makeIcon();
};

} // namespace velmorath
