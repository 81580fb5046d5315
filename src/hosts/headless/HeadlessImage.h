#pragma once

#include "CGColor.h"
#include "CGImage.h"

namespace velmorath {

/// A picture of which only the size is known, and its colour when it is all of one, or how long its file is.
class HeadlessImage : public CGImage {
public:
    explicit HeadlessImage(CGSize pixels, const CGColor& color = {0, 0, 0, 0}, std::size_t byteCount = 0)
        : m_pixels(pixels)
        , m_color(color)
        , m_byteCount(byteCount)
    {
    }

    CGSize pixelSize() const override { return m_pixels; }
    const CGColor& color() const { return m_color; }
    std::size_t byteCount() const { return m_byteCount; }

private:
    CGSize m_pixels;
    CGColor m_color;
    std::size_t m_byteCount;
};

} // namespace velmorath
