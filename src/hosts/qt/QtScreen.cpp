#include "QtScreen.h"
#include "QtColor.h"
#include "QtImage.h"
#include <QBuffer>
#include <QImageReader>

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
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg")
        return nullptr;
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    return image.isNull() ? nullptr : std::make_shared<QtImage>(image);
}

std::shared_ptr<CGImage> QtScreen::makeBitmap(CGSize pixels, const CGColor& color)
{
    QImage image(
        static_cast<int>(pixels.width), static_cast<int>(pixels.height), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return nullptr;
    image.fill(toQColor(color));
    return std::make_shared<QtImage>(image);
}

} // namespace velmorath
