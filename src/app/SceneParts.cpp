#include "SceneParts.h"
#include "Bundle.h"
#include <algorithm>

namespace velmorath {

namespace {

/// Pictures have three pixels a point.
constexpr CGFloat pictureScale = 3;

std::shared_ptr<UIButton> pictureButton(
    CGFloat x, std::string_view picture, std::string_view name, std::function<void()> action)
{
    auto button = std::make_shared<UIButton>(CGRectMake(x, 0, barHeight, barHeight));
    button->setImage(barPicture(picture));
    button->setAccessibilityLabel(Bundle::main().localizedString(name));
    button->addTarget([action = std::move(action)](UIControl&) { action(); });
    return button;
}

} // namespace

std::shared_ptr<UIImage> barPicture(std::string_view name)
{
    return UIImage::named(name, "png", pictureScale);
}

std::shared_ptr<UIButton> leftBarButton(
    std::string_view picture, std::string_view name, std::function<void()> action)
{
    return pictureButton(0, picture, name, std::move(action));
}

std::shared_ptr<UIButton> rightBarButton(
    CGFloat viewWidth, std::string_view picture, std::string_view name, std::function<void()> action)
{
    std::shared_ptr<UIButton> button = pictureButton(viewWidth - barHeight, picture, name, std::move(action));
    button->setAutoresizingMask(UIViewAutoresizing::flexibleLeftMargin);
    return button;
}

std::shared_ptr<UIView> topBar(CGFloat viewWidth)
{
    auto bar = std::make_shared<UIView>(CGRectMake(0, 0, viewWidth, barHeight));
    bar->setAutoresizingMask(UIViewAutoresizing::flexibleWidth);
    return bar;
}

TableScroller::TableScroller(const CGRect& frame, std::shared_ptr<UIView> table, CGFloat tableHeight)
    : UIScrollView(frame)
    , m_tableHeight(tableHeight)
{
    setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleHeight);
    addSubview(std::move(table));
}

void TableScroller::layoutSubviews()
{
    const CGSize size = bounds().size;
    const CGFloat height = std::max(size.height, m_tableHeight);
    setContentSize({size.width, height});
    setScrollEnabled(height > size.height);
    subviews().front()->setFrame(CGRectMake(0, 0, size.width, height));
    UIScrollView::layoutSubviews();
}

} // namespace velmorath
