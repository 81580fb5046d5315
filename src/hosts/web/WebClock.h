#pragma once

#include "Clock.h"
#include "Page.h"

namespace velmorath {

class WebClock final : public Clock {
public:
    double now() const override { return pageNow(); }
    double wallTime() const override { return pageWallTime(); }
    void wakeAt(double time) override { pageWakeAt(time); }
};

} // namespace velmorath
