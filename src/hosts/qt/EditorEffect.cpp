#include "EditorEffect.h"
#include <QPainter>

namespace velmorath {

EditorEffect::EditorEffect()
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
    const QPixmap picture = sourcePixmap(Qt::DeviceCoordinates, &offset, QGraphicsEffect::NoPad);
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform({});
    painter->setOpacity(m_opacity);
    painter->drawPixmap(QPointF(offset) + m_shift, picture);
    painter->setWorldTransform(transform);
}

} // namespace velmorath
