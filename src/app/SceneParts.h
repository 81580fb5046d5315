#pragma once

#include "UIButton.h"
#include "UIScrollView.h"
#include <functional>
#include <memory>
#include <string_view>

namespace velmorath {

/// Bars at the top or the bottom of a screen are this high, and their buttons this wide.
constexpr CGFloat barHeight = 56;

/// One of the pictures of the bars' buttons.
std::shared_ptr<UIImage> barPicture(std::string_view name);

/// A button with a picture, for the left end of a bar.
/// `name` is what it is called where it cannot be seen: a text of the screen, in English.
std::shared_ptr<UIButton> leftBarButton(
    std::string_view picture, std::string_view name, std::function<void()> action);
/// The same for the right end of a bar in a view of this width.
std::shared_ptr<UIButton> rightBarButton(
    CGFloat viewWidth, std::string_view picture, std::string_view name, std::function<void()> action);

/// A bar across the top of a view.
std::shared_ptr<UIView> topBar(CGFloat viewWidth);

/// Holds a table that does not scroll, and scrolls it where the window is too low for its rows.
class TableScroller : public UIScrollView {
public:
    /// Follows the size of the view around it. The height is that of all the table's rows.
    TableScroller(const CGRect& frame, std::shared_ptr<UIView> table, CGFloat tableHeight);

    void layoutSubviews() override;

private:
    CGFloat m_tableHeight;
};

} // namespace velmorath
