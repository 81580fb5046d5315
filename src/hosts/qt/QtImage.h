#pragma once

#include "CGImage.h"
#include <QImage>

namespace velmorath {

/// A picture in the pixel format that is painted fastest.
class QtImage final : public CGImage {
public:
    explicit QtImage(const QImage& image)
        : m_image(image.convertToFormat(QImage::Format_ARGB32_Premultiplied))
    {
    }

    const QImage& image() const { return m_image; }
    CGSize pixelSize() const override
    {
        return {static_cast<CGFloat>(m_image.width()), static_cast<CGFloat>(m_image.height())};
    }

private:
    QImage m_image;
};

} // namespace velmorath
