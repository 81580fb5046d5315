#pragma once

#include "CALayerState.h"
#include <array>

namespace velmorath {

/// A value that moves through a part of a layer's state, slow at both ends. Seconds of the timeline.
template <typename T> struct CAAnimation {
    T CALayerState::*member;
    T from;
    T to;
    double begin;
    double duration;

    bool isOver(double time) const { return (time - begin) / duration >= 1; }
    void show(CALayerState& state, double time) const
    {
        if (isOver(time))
            return;
        const double progress = std::max(0.0, (time - begin) / duration);
        const double share = progress * progress * (3 - 2 * progress);
        // All that moves is made of numbers, each of which goes its way.
        // NOLINTNEXTLINE(bugprone-sizeof-expression): one number is made of itself.
        using Numbers = std::array<CGFloat, sizeof(T) / sizeof(CGFloat)>;
        Numbers shown = __builtin_bit_cast(Numbers, from);
        const Numbers end = __builtin_bit_cast(Numbers, to);
        for (std::size_t i = 0; i < shown.size(); ++i)
            shown[i] += (end[i] - shown[i]) * share;
        state.*member = __builtin_bit_cast(T, shown);
    }
};

} // namespace velmorath
