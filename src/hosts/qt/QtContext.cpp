#include "QtContext.h"
#include "QtColor.h"
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
    , m_toDevice(painter.transform())
{
    m_painter.setPen(Qt::NoPen);
}

void QtContext::useTransform()
{
    const CGAffineTransform& t = transform();
    if (m_used == t)
        return;
    m_used = t;
    m_painter.setTransform(QTransform(t.a, t.b, t.c, t.d, t.tx, t.ty) * m_toDevice);
}

void QtContext::beginClip(const CGRect& rect, CGFloat cornerRadius)
{
    m_painter.save();
    useTransform();
    if (cornerRadius <= 0) {
        m_painter.setClipRect(toQRect(rect), Qt::IntersectClip);
        return;
    }
    QPainterPath path;
    path.addRoundedRect(toQRect(rect), cornerRadius, cornerRadius);
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setClipPath(path, Qt::IntersectClip);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::endClip()
{
    m_painter.restore();
    m_used.reset();
}

void QtContext::paint(const CGRect& rect, CGFloat cornerRadius, const QBrush& brush)
{
    useTransform();
    if (cornerRadius <= 0 && transform().isUpright()) {
        // Edges on whole pixels: rows that touch leave no seam.
        m_painter.fillRect(toQRect(rect), brush);
        return;
    }
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setBrush(brush);
    m_painter.drawRoundedRect(toQRect(rect), cornerRadius, cornerRadius);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::paintColor(const CGRect& rect, CGFloat cornerRadius, const CGColor& color)
{
    paint(rect, cornerRadius, toQColor(color));
}

void QtContext::paintGradient(const CGRect& rect, CGFloat cornerRadius, const CGGradient& gradient)
{
    QLinearGradient painted(0, rect.minY(), 0, rect.maxY());
    QGradientStops stops;
    stops.reserve(static_cast<qsizetype>(gradient.colors.size()));
    for (std::size_t i = 0; i < gradient.colors.size(); ++i)
        stops.append({gradient.locations[i], toQColor(gradient.colors[i])});
    painted.setStops(stops);
    paint(rect, cornerRadius, painted);
}

void QtContext::paintLine(const CGRect& rect, CGFloat cornerRadius, CGFloat lineWidth, const CGColor& color)
{
    useTransform();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setBrush(Qt::NoBrush);
    m_painter.setPen(QPen(toQColor(color), lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    m_painter.drawRoundedRect(toQRect(rect), cornerRadius, cornerRadius);
    m_painter.setPen(Qt::NoPen);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
}

void QtContext::paintShadow(
    const CGRect& rect, CGFloat cornerRadius, const CGColor& color, CGVector offset, CGFloat blurRadius)
{
    const CGRect moved = rect.offsetBy(offset.dx, offset.dy);
    const double scale = m_painter.device()->devicePixelRatioF();
    const int blur = qRound(blurRadius * scale);
    if (blur <= 0) {
        paintColor(moved, cornerRadius, color);
        return;
    }
    useTransform();
    const int corner = qRound(cornerRadius * scale);
    // A larger core looks the same but for its length, and comes from stretching the pixel in its middle.
    const int largestCore = 2 * (corner + blur) + 1;
    const int width = std::clamp(qRound(rect.size.width * scale), 1, largestCore);
    const int height = std::clamp(qRound(rect.size.height * scale), 1, largestCore);
    const QImage& image = m_shadows.find({width, height, corner, blur, toQColor(color).rgba()});

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

void QtContext::paintText(std::string_view utf8, const CGRect& rect, const CGTextStyle& style)
{
    useTransform();
    m_painter.setPen(toQColor(style.color));
    m_texts.find(utf8, style, rect.size.width).draw(m_painter, rect);
    m_painter.setPen(Qt::NoPen);
}

void QtContext::paintImage(const CGImage& image, const CGRect& rect, CGFloat alpha)
{
    useTransform();
    m_painter.setOpacity(alpha);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter.drawImage(toQRect(rect), static_cast<const QtImage&>(image).image());
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    m_painter.setOpacity(1);
}

} // namespace velmorath
