#include "QtScreen.h"
#include "QtImage.h"

namespace velmorath {

CGSize QtScreen::size() const
{
    return {static_cast<CGFloat>(m_widget.width()), static_cast<CGFloat>(m_widget.height())};
}

CGTextMetrics QtScreen::measure(std::string_view utf8, const CGFont& font, CGFloat wrapWidth)
{
    const bool wraps = wrapWidth > 0;
    const CGTextStyle style{.font = font, .color = {}, .wraps = wraps};
    const CGFloat width = wraps ? wrapWidth : std::numeric_limits<CGFloat>::infinity();
    return m_widget.texts().find(utf8, style, width).metrics();
}

std::shared_ptr<CGImage> QtScreen::decodeImage(std::string_view bytes)
{
    const QImage image = QtImage::decoded(bytes);
    return image.isNull() ? nullptr : std::make_shared<QtImage>(image);
}

} // namespace velmorath
