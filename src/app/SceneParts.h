#pragma once

#include "UIButton.h"
#include "UIView.h"
#include <functional>
#include <memory>
#include <string_view>

namespace velmorath {

/// Bars at the top or the bottom of a screen are this high, and their buttons this wide.
constexpr CGFloat barHeight = 56;

/// A button with a picture, for the left end of a bar.
/// `name` is what it is called where it cannot be seen: a text of the screen, in English.
std::shared_ptr<UIButton> leftBarButton(
    std::string_view picture, std::string_view name, std::function<void()> action);
/// The same for the right end of a bar in a view of this width.
std::shared_ptr<UIButton> rightBarButton(
    CGFloat viewWidth, std::string_view picture, std::string_view name, std::function<void()> action);

/// A bar across the top of a view.
std::shared_ptr<UIView> topBar(CGFloat viewWidth);

/// Holds one view in its middle, with a margin, and no wider than a text that is easy to read.
class ReadingColumn : public UIView {
public:
    /// Follows the size of the view around it.
    ReadingColumn(const CGRect& frame, std::shared_ptr<UIView> content);

    void layoutSubviews() override;
};

} // namespace velmorath
