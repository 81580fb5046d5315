#include "EditorEffect.h"
#include <QPainter>

namespace velmorath {

namespace {

/// A caret inverts what is under it, which on a transparent picture is a colour without any alpha.
void makeCaretVisible(QImage& image, QRgb color)
{
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (line[x] != 0 && qAlpha(line[x]) == 0)
                line[x] = color;
        }
    }
}

} // namespace

EditorEffect::EditorEffect(const QColor& caretColor)
    : m_caretColor(qPremultiply(caretColor.rgba()))
{
    setEnabled(false);
}

void EditorEffect::set(double opacity, QPointF shift)
{
    if (m_opacity == opacity && m_shift == shift)
        return;
    m_opacity = opacity;
    m_shift = shift;
    setEnabled(opacity < 1 || !shift.isNull());
    update();
}

void EditorEffect::draw(QPainter* painter)
{
    QPoint offset;
    QImage picture = sourcePixmap(Qt::DeviceCoordinates, &offset, QGraphicsEffect::NoPad)
                         .toImage()
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    makeCaretVisible(picture, m_caretColor);
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform({});
    painter->setOpacity(m_opacity);
    painter->drawImage(QPointF(offset) + m_shift, picture);
    painter->setWorldTransform(transform);
}

} // namespace velmorath
