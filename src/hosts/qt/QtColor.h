#pragma once

#include "CGColor.h"
#include <QColor>

namespace velmorath {

/// Colours are clamped here and nowhere else.
inline QColor toQColor(const CGColor& color)
{
    const auto component = [](CGFloat value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(
        component(color.red), component(color.green), component(color.blue), component(color.alpha));
}

} // namespace velmorath
