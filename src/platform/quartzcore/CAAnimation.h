#pragma once

#include "CALayerState.h"

namespace velmorath {

/// A value that moves through a part of a layer's state, slow at both ends. Seconds of the timeline.
template <typename T> struct CAAnimation {
    T CALayerState::*member;
    T from;
    T to;
    double begin;
    double duration;

    bool isOver(double time) const { return (time - begin) / duration >= 1; }
    void show(CALayerState&, double time) const;
};

} // namespace velmorath
