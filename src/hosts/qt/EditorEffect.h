#pragma once

#include <QColor>
#include <QGraphicsEffect>

namespace velmorath {

/// Fades a widget, and moves it by a part of a point, which a widget itself cannot.
class EditorEffect final : public QGraphicsEffect {
public:
    explicit EditorEffect(const QColor& caretColor);

    /// Does not cost anything while there is nothing to do.
    void set(double opacity, QPointF shift);

    QRectF boundingRectFor(const QRectF& rect) const override { return rect.adjusted(0, 0, 1, 1); }

protected:
    void draw(QPainter*) override;

private:
    QRgb m_caretColor;
    double m_opacity = 1;
    QPointF m_shift;
};

} // namespace velmorath
