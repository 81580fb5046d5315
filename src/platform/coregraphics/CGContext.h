#pragma once

#include "CGAffineTransform.h"
#include "CGColor.h"
#include "CGImage.h"
#include "CGText.h"
#include <string_view>
#include <vector>

namespace velmorath {

/// Colours from the top of a rectangle to its bottom. As many locations (0 … 1, ascending) as colours.
struct CGGradient {
    std::vector<CGColor> colors;
    std::vector<CGFloat> locations;

    bool operator==(const CGGradient&) const = default;
};

/// A corner radius as it is drawn: at most half the rectangle's shorter side.
inline CGFloat limitedRadius(const CGRect& rect, CGFloat radius)
{
    return std::clamp(radius, 0.0, std::min(rect.size.width, rect.size.height) / 2);
}

/// What a host can draw. Coordinates are points in the current transform. Every corner radius is
/// limited to half the rectangle's shorter side. Main thread only, and only while the host asks for a
/// frame. A call with an empty rectangle or a text without characters draws nothing.
class CGContext {
public:
    virtual ~CGContext() = default;

    /// Transform, clip and alpha are saved together; each save is paired with one restore.
    virtual void saveState() = 0;
    virtual void restoreState() = 0;

    /// What is drawn from now on is transformed by this first, then by what was there before.
    virtual void concatenate(const CGAffineTransform&) = 0;
    /// Narrows the area that is drawn to.
    virtual void clip(const CGRect&, CGFloat cornerRadius) = 0;
    /// Multiplies the alpha of all that is drawn from now on.
    virtual void multiplyAlpha(CGFloat) = 0;

    virtual void fill(const CGRect&, CGFloat cornerRadius, const CGColor&) = 0;
    virtual void fill(const CGRect&, CGFloat cornerRadius, const CGGradient&) = 0;
    /// The line runs inside the rectangle's edge.
    virtual void stroke(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) = 0;
    /// The soft shadow that the rectangle casts: moved by the offset, blurred over the radius. The
    /// rectangle itself is not drawn.
    virtual void drawShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) = 0;
    virtual void drawText(std::string_view utf8, const CGRect&, const CGTextStyle&) = 0;
    /// The whole picture, stretched to the rectangle.
    virtual void drawImage(const CGImage&, const CGRect&) = 0;
};

} // namespace velmorath
