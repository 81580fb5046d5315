#pragma once

#include "CGColor.h"
#include <QColor>

namespace velmorath {

/// Components are clamped: a colour of ours may lie outside of what can be shown.
inline QColor toQColor(const CGColor& color)
{
    return {CGColor::toByte(color.red), CGColor::toByte(color.green), CGColor::toByte(color.blue),
        CGColor::toByte(color.alpha)};
}

} // namespace velmorath
