#pragma once

#include "CGText.h"
#include <QFont>
#include <QTextLayout>
#include <memory>
#include <vector>

class QPainter;

namespace velmorath {

/// A text that is shaped and broken into lines, ready to be drawn many times. It puts every glyph where
/// Qt's own line and text editors put it, so that a text does not move when its editing starts.
class TextLayout {
public:
    /// Lines are as wide as the width in whole points; a single line ends in an ellipsis there.
    TextLayout(const QString&, const QFont&, const CGTextStyle&, int width);

    /// In the colour of the painter's pen.
    void draw(QPainter&, const CGRect&) const;

    CGTextMetrics metrics() const;

    /// The place on the screen where a text is drawn instead of this one, so that its editor can be moved
    /// to exactly there too.
    static QPointF snapped(QPointF, double scale);

    /// For texts and their editors alike: Qt's plain "left" follows the reading direction.
    static Qt::Alignment toQtAlignment(CGTextAlignment);

    /// The room that a line editor leaves at the left of its text, and at the right beyond the width of
    /// the rectangle that it lies on.
    static constexpr int editorMarginLeft = 2;
    static constexpr int editorMarginRight = 4;

private:
    void layOutLine(const QString&, int width);
    void layOutParagraph(const QString&, int width);
    QPointF lineOrigin(const CGRect&) const;

    QFont m_font;
    CGTextStyle m_style;
    bool m_readsFromTheRight = false;
    double m_height = 0;
    std::vector<std::unique_ptr<QTextLayout>> m_paragraphs;
};

} // namespace velmorath
