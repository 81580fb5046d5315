#include "QtContext.h"
#include "QtImage.h"
#include "ShadowCache.h"
#include "TextCache.h"
#include <QPainterPath>
#include <array>

namespace velmorath {

namespace {

QRectF toQRect(const CGRect& rect)
{
    return {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

} // namespace

QtContext::QtContext(QPainter& painter, TextCache& texts, ShadowCache& shadows)
    : m_painter(painter)
    , m_texts(texts)
    , m_shadows(shadows)
{
    m_painter.setPen(Qt::NoPen);
}

QColor QtContext::toQColor(const CGColor& color) const
{
    return {CGColor::toByte(color.red), CGColor::toByte(color.green), CGColor::toByte(color.blue),
        CGColor::toByte(std::min(color.alpha, 1.0) * m_alpha)};
}

void QtContext::saveState()
{
    m_painter.save();
    m_savedAlphas.push_back(m_alpha);
}

void QtContext::restoreState()
{
    m_painter.restore();
    m_alpha = m_savedAlphas.back();
    m_savedAlphas.pop_back();
}

void QtContext::concatenate(const CGAffineTransform& t)
{
    m_painter.setTransform(QTransform(t.a, t.b, t.c, t.d, t.tx, t.ty), true);
}

void QtContext::clip(const CGRect& rect, CGFloat cornerRadius)
{
    const CGFloat radius = limitedRadius(rect, cornerRadius);
    if (rect.isEmpty() || radius <= 0) {
        m_painter.setClipRect(rect.isEmpty() ? QRectF() : toQRect(rect), Qt::IntersectClip);
        return;
    }
    QPainterPath path;
    path.addRoundedRect(toQRect(rect), radius, radius);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setClipPath(path, Qt::IntersectClip);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::multiplyAlpha(CGFloat alpha)
{
    m_alpha *= std::clamp(alpha, 0.0, 1.0);
}

void QtContext::fill(const CGRect& rect, CGFloat cornerRadius, const QBrush& brush)
{
    const CGFloat radius = limitedRadius(rect, cornerRadius);
    if (radius <= 0 && m_painter.transform().type() <= QTransform::TxScale) {
        // Edges on whole pixels: rows that touch leave no seam.
        m_painter.fillRect(toQRect(rect), brush);
        return;
    }
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setBrush(brush);
    m_painter.drawRoundedRect(toQRect(rect), radius, radius);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    const QColor painted = toQColor(color);
    if (!rect.isEmpty() && painted.alpha() > 0)
        fill(rect, cornerRadius, QBrush(painted));
}

void QtContext::fill(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    if (rect.isEmpty() || gradient.colors.empty())
        return;
    QLinearGradient painted(0, rect.minY(), 0, rect.maxY());
    QGradientStops stops;
    stops.reserve(static_cast<qsizetype>(gradient.colors.size()));
    for (std::size_t i = 0; i < gradient.colors.size(); ++i)
        stops.append({std::clamp(gradient.locations[i], 0.0, 1.0), toQColor(gradient.colors[i])});
    painted.setStops(stops);
    fill(rect, cornerRadius, QBrush(painted));
}

void QtContext::stroke(const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    if (rect.isEmpty() || lineWidth <= 0)
        return;
    const CGFloat radius = std::max(0.0, limitedRadius(rect, cornerRadius) - lineWidth / 2);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(toQColor(color), lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    m_painter.drawRoundedRect(toQRect(rect.insetBy(lineWidth / 2, lineWidth / 2)), radius, radius);
    m_painter.setPen(Qt::NoPen);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::drawShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    const QColor painted = toQColor(color);
    if (rect.isEmpty() || painted.alpha() == 0)
        return;
    const CGRect moved = rect.offsetBy(offset.dx, offset.dy);
    const double scale = m_painter.device()->devicePixelRatioF();
    const int blur = qRound(blurRadius * scale);
    if (blur <= 0) {
        fill(moved, cornerRadius, color);
        return;
    }
    const int corner = qRound(limitedRadius(rect, cornerRadius) * scale);
    // A larger core looks the same but for its length, and comes from stretching the pixel in its middle.
    const int largestCore = 2 * (corner + blur) + 1;
    const int width = std::clamp(qRound(rect.size.width * scale), 1, largestCore);
    const int height = std::clamp(qRound(rect.size.height * scale), 1, largestCore);
    const QImage& image = m_shadows.find({width, height, corner, blur, painted.rgba()});

    const QRectF target = toQRect(moved.insetBy(-blurRadius, -blurRadius));
    const auto split = [scale](int pixels, double start, double length, std::array<double, 4>& to,
                           std::array<double, 4>& from) {
        const int middle = pixels / 2;
        const double end = (pixels - middle - 1) / scale;
        from = {0, double(middle), double(middle + 1), double(pixels)};
        to = {start, start + middle / scale, std::max(start + middle / scale, start + length - end),
            start + length};
    };
    std::array<double, 4> toX, fromX, toY, fromY;
    split(image.width(), target.x(), target.width(), toX, fromX);
    split(image.height(), target.y(), target.height(), toY, fromY);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const QRectF to(QPointF(toX[column], toY[row]), QPointF(toX[column + 1], toY[row + 1]));
            const QRectF from(QPointF(fromX[column], fromY[row]), QPointF(fromX[column + 1], fromY[row + 1]));
            m_painter.drawImage(to, image, from);
        }
    }
}

void QtContext::drawText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    const QColor color = toQColor(style.color);
    if (utf8.empty() || rect.isEmpty() || color.alpha() == 0)
        return;
    m_painter.setPen(color);
    m_texts.find(utf8, style, rect.size.width).draw(m_painter, rect);
    m_painter.setPen(Qt::NoPen);
}

void QtContext::drawImage(const CGImage& image, const CGRect& rect)
{
    if (rect.isEmpty())
        return;
    const double opacity = m_painter.opacity();
    m_painter.setOpacity(opacity * m_alpha);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter.drawImage(toQRect(rect), static_cast<const QtImage&>(image).image());
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    m_painter.setOpacity(opacity);
}

} // namespace velmorath
