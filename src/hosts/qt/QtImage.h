#pragma once

#include "CGImage.h"
#include <QImage>
#include <string_view>

namespace velmorath {

/// A picture in the pixel format that is painted fastest.
class QtImage final : public CGImage {
public:
    explicit QtImage(const QImage& image)
        : m_image(image.convertToFormat(QImage::Format_ARGB32_Premultiplied))
    {
    }

    /// PNG or JPEG; the null image when the bytes are neither.
    static QImage decoded(std::string_view bytes);

    const QImage& image() const { return m_image; }
    CGSize pixelSize() const override
    {
        return {static_cast<CGFloat>(m_image.width()), static_cast<CGFloat>(m_image.height())};
    }

private:
    QImage m_image;
};

} // namespace velmorath
