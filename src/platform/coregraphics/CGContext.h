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

/// What a host can draw. Coordinates are points in the current transform. Every corner radius is
/// limited to half the rectangle's shorter side. Main thread only, and only while the host asks for a
/// frame. A call with an empty rectangle, a text without characters or a colour that does not show draws
/// nothing. Hosts implement the private calls, which get only what can be seen, with the limits kept and
/// the alpha of the context in the colours.
class CGContext {
public:
    virtual ~CGContext() = default;

    /// Transform, clip and alpha are saved together; each save is paired with one restore.
    void saveState() { m_saved.push_back(m_state); }
    void restoreState();

    /// What is drawn from now on is transformed by this first, then by what was there before.
    void concatenate(const CGAffineTransform& transform)
    {
        m_state.transform = transform.concatenated(m_state.transform);
    }
    /// Narrows the area that is drawn to.
    void clip(const CGRect&, CGFloat cornerRadius);
    /// Multiplies the alpha of all that is drawn from now on.
    void multiplyAlpha(CGFloat alpha) { m_state.alpha *= std::clamp(alpha, 0.0, 1.0); }

    void fill(const CGRect&, CGFloat cornerRadius, const CGColor&);
    void fill(const CGRect&, CGFloat cornerRadius, const CGGradient&);
    /// The line runs inside the rectangle's edge.
    void stroke(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&);
    /// The soft shadow that the rectangle casts: moved by the offset, blurred over the radius. The
    /// rectangle itself is not drawn.
    void drawShadow(const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius);
    void drawText(std::string_view utf8, const CGRect&, const CGTextStyle&);
    /// The whole picture, stretched to the rectangle.
    void drawImage(const CGImage&, const CGRect&);

protected:
    /// `toDevice` is the transform that everything has at first.
    explicit CGContext(const CGAffineTransform& toDevice = {})
        : m_state{toDevice}
    {
    }

    /// The one that holds for what is drawn now.
    const CGAffineTransform& transform() const { return m_state.transform; }

private:
    struct State {
        CGAffineTransform transform;
        CGFloat alpha = 1;
        int clips = 0;
    };

    /// Nothing is inside a clip without extent.
    virtual void beginClip(const CGRect&, CGFloat cornerRadius) = 0;
    /// The clip that began last is no more.
    virtual void endClip() = 0;
    virtual void paintColor(const CGRect&, CGFloat cornerRadius, const CGColor&) = 0;
    virtual void paintGradient(const CGRect&, CGFloat cornerRadius, const CGGradient&) = 0;
    /// The rectangle is the middle of the line.
    virtual void paintLine(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) = 0;
    virtual void paintShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) = 0;
    virtual void paintText(std::string_view utf8, const CGRect&, const CGTextStyle&) = 0;
    virtual void paintImage(const CGImage&, const CGRect&, CGFloat alpha) = 0;

    CGColor faded(const CGColor& color) const
    {
        return color.withAlpha(std::min(color.alpha, 1.0) * m_state.alpha);
    }

    State m_state;
    std::vector<State> m_saved;
};

} // namespace velmorath
