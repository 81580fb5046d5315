#include "PubblicitaNib.h"
#include "Bundle.h"
#include "PubblicitaView.h"
#include "UINib.h"

namespace velmorath {

namespace {

/// The size that the content is laid out for; it follows the banner's from there.
constexpr CGSize designSize{320, 128};
constexpr CGFloat margin = 12;
constexpr CGFloat headerHeight = 36;
constexpr CGFloat iconSize = 60;
constexpr CGFloat iconGap = 28;

/// Pictures have three pixels a point.
constexpr CGFloat pictureScale = 3;

std::shared_ptr<UILabel> makeHeader()
{
    auto header =
        std::make_shared<UILabel>(CGRectMake(margin, margin, designSize.width - 2 * margin, headerHeight));
    header->setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleBottomMargin);
    header->setFont(UIFont::boldSystemFont(16));
    header->setTextColor(UIColor::white());
    header->setTextAlignment(CGTextAlignment::center);
    header->setMinimumScaleFactor(0.5);
    return header;
}

std::shared_ptr<UIButton> makeIcon(
    PubblicitaView& banner, CGFloat x, int tag, std::string_view picture, std::string_view name)
{
    auto icon = std::make_shared<UIButton>(CGRectMake(x, margin + headerHeight + 8, iconSize, iconSize));
    icon->setAutoresizingMask(UIViewAutoresizing::flexibleLeftMargin | UIViewAutoresizing::flexibleRightMargin
        | UIViewAutoresizing::flexibleBottomMargin);
    icon->setTag(tag);
    icon->setImage(UIImage::named(picture, "png", pictureScale));
    icon->setAccessibilityLabel(Bundle::main().localizedString(name));
    icon->addTarget([&banner](UIControl& sender) { banner.iconaCliccata(sender); });
    return icon;
}

UINib::Objects makeContent(Object& owner)
{
    auto& banner = static_cast<PubblicitaView&>(owner);
    const auto content = std::make_shared<UIView>(CGRect{{0, 0}, designSize});
    content->setBackgroundColor(CGColor::gray(0.12));

    const auto header = makeHeader();
    content->addSubview(header);
    banner.labeltestoPubblicitario = header;

    const CGFloat left = (designSize.width - 2 * iconSize - iconGap) / 2;
    const auto first = makeIcon(banner, left, 1, "clessidra", "Hourglass");
    content->addSubview(first);
    banner.iconaApp1 = first;
    const auto second = makeIcon(banner, left + iconSize + iconGap, 2, "diario", "Diary");
    content->addSubview(second);
    banner.iconaApp2 = second;
    return {content};
}

} // namespace

void enterPubblicitaNib()
{
    UINib::enter("PubblicitaView", makeContent);
}

} // namespace velmorath
