#pragma once

#include "CGColor.h"
#include "CGImage.h"

namespace velmorath {

/// A picture of which only the size and, when it is all of one colour, that colour are known.
class HeadlessImage : public CGImage {
public:
    explicit HeadlessImage(CGSize pixels, const CGColor& color = {0, 0, 0, 0})
        : m_pixels(pixels)
        , m_color(color)
    {
    }

    CGSize pixelSize() const override { return m_pixels; }
    const CGColor& color() const { return m_color; }

private:
    CGSize m_pixels;
    CGColor m_color;
};

} // namespace velmorath
