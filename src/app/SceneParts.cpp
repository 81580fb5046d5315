#include "SceneParts.h"
#include "Bundle.h"
#include <algorithm>

namespace velmorath {

namespace {

/// Pictures have three pixels a point.
constexpr CGFloat pictureScale = 3;
constexpr CGFloat columnMargin = 16;
constexpr CGFloat widestColumn = 700;

std::shared_ptr<UIButton> pictureButton(
    CGFloat x, std::string_view picture, std::string_view name, std::function<void()> action)
{
    auto button = std::make_shared<UIButton>(CGRectMake(x, 0, barHeight, barHeight));
    button->setImage(UIImage::named(picture, "png", pictureScale));
    button->setAccessibilityLabel(Bundle::main().localizedString(name));
    button->addTarget([action = std::move(action)](UIControl&) { action(); });
    return button;
}

} // namespace

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

ReadingColumn::ReadingColumn(const CGRect& frame, std::shared_ptr<UIView> content)
    : UIView(frame)
{
    setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleHeight);
    addSubview(std::move(content));
}

void ReadingColumn::layoutSubviews()
{
    UIView::layoutSubviews();
    const CGSize size = bounds().size;
    const CGFloat width = std::clamp(size.width - 2 * columnMargin, 0.0, widestColumn);
    subviews().front()->setFrame(CGRectMake(
        (size.width - width) / 2, columnMargin, width, std::max(0.0, size.height - 2 * columnMargin)));
}

} // namespace velmorath
