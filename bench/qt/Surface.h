#pragma once

#include "QtContext.h"
#include "ShadowCache.h"
#include "TextCache.h"
#include <QImage>
#include <QPainter>

namespace velmorath {

inline constexpr CGSize screenSize{375, 667};
inline constexpr int scale = 2;

/// A phone's screen in memory, as a window has it.
class Surface {
public:
    Surface()
    {
        m_image.setDevicePixelRatio(scale);
        m_painter.begin(&m_image);
    }

    QPainter& painter() { return m_painter; }
    QtContext& context() { return m_context; }

private:
    QImage m_image{int(screenSize.width) * scale, int(screenSize.height) * scale, QImage::Format_RGB32};
    QPainter m_painter;
    TextCache m_texts;
    ShadowCache m_shadows;
    QtContext m_context{m_painter, m_texts, m_shadows};
};

} // namespace velmorath
