#pragma once

#include <QEvent>
#include <QPointF>
#include <QTimer>

class QTouchEvent;
class QWidget;

namespace velmorath {

/// A finger on a text that is edited: a drag scrolls it, a tap places the caret, and what is held or tapped
/// twice is selected, together with what the finger is drawn over from there. To the editor it is a mouse.
class EditorFinger final : public QObject {
public:
    /// The surface is what the editor shows its text on. It owns this.
    explicit EditorFinger(QWidget& surface);

protected:
    bool eventFilter(QObject*, QEvent*) override;

private:
    void touch(const QTouchEvent&);
    void began(bool stopsScrolling);
    void moved();
    void ended();
    void select();
    void click(QEvent::Type, Qt::MouseButtons) const;
    bool isNear(QPointF) const;

    enum class Deed { none, tap, scroll, select };

    QWidget& m_surface;
    Deed m_deed = Deed::none;
    QTimer m_hold;
    /// Runs while another tap would be the second one.
    QTimer m_tapped;
    QPointF m_start;
    QPointF m_place;
};

} // namespace velmorath
