#pragma once

#include "CALayer.h"
#include <unordered_map>

namespace velmorath {

/// Draws a tree of layers and knows which part of the screen changed since the frame before. Its cost
/// depends on the layers in sight alone.
class CARenderer {
public:
    /// Looks at the tree as it is shown at this moment and returns what must be drawn again, in the
    /// root's superlayer's coordinates; the null rectangle when nothing changed.
    CGRect update(CALayer& root, double time, const CGRect& screen);

    /// Draws what falls inside the area as it is shown at this moment.
    static void draw(const CALayer&, double time, CGContext&, const CGRect& area);

private:
    struct Shown {
        std::uint64_t version;
        CALayerState state;
        CGAffineTransform toScreen;
        CGFloat opacity;
        CGRect area;
        std::size_t order;

        bool looksLike(const Shown& other) const
        {
            return version == other.version && state == other.state && toScreen == other.toScreen
                && opacity == other.opacity && area == other.area;
        }
    };
    using Frame = std::unordered_map<std::uint64_t, Shown>;

    static void collect(
        CALayer&, double time, const CGAffineTransform& parent, CGFloat opacity, const CGRect& clip, Frame&);

    Frame m_lastFrame;
};

} // namespace velmorath
