#pragma once

#include "CGGeometry.h"
#include <memory>

namespace velmorath {

class UIView;

/// One finger, from the moment it comes down until it leaves.
class UITouch {
public:
    UITouch(CGPoint location, double time, std::shared_ptr<UIView> view)
        : m_location(location)
        , m_start(location)
        , m_time(time)
        , m_view(std::move(view))
    {
    }

    /// In window coordinates.
    CGPoint location() const { return m_location; }
    CGPoint start() const { return m_start; }

    /// Seconds of Clock::now().
    double time() const { return m_time; }

    /// The view that the finger came down on.
    const std::shared_ptr<UIView>& view() const { return m_view; }

    void moveTo(CGPoint location, double time)
    {
        m_location = location;
        m_time = time;
    }

private:
    CGPoint m_location;
    CGPoint m_start;
    double m_time;
    std::shared_ptr<UIView> m_view;
};

} // namespace velmorath
