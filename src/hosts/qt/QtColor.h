#pragma once

#include "CGColor.h"
#include <QColor>

namespace velmorath {

/// Components are clamped: a colour of ours may lie outside of what can be shown.
inline QColor toQColor(const CGColor& color)
{
    const auto component = [](CGFloat value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(
        component(color.red), component(color.green), component(color.blue), component(color.alpha));
}

} // namespace velmorath
