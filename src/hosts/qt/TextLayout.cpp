#include "TextLayout.h"
#include <QFontMetricsF>
#include <QPainter>

namespace velmorath {

namespace {

/// What a line editor shows for characters that have no place in one line.
QString withoutControlCharacters(QString text)
{
    for (QChar& character : text) {
        const bool breaksLine = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (breaksLine || (character < QChar::Space && character != QChar::Tabulation))
            character = QChar::Space;
    }
    return text;
}

/// The rectangle moved to where an editor over it can be.
CGRect snappedRect(const QPainter& painter, const CGRect& rect)
{
    const QTransform& transform = painter.transform();
    if (transform.type() > QTransform::TxTranslate)
        return rect;
    const QPointF corner = transform.map(QPointF(rect.minX(), rect.minY()));
    const QPointF moved = TextLayout::snapped(corner, painter.device()->devicePixelRatioF()) - corner;
    return rect.offsetBy(moved.x(), moved.y());
}

} // namespace

QPointF TextLayout::snapped(QPointF point, double scale)
{
    const QPointF whole(std::floor(point.x()), std::floor(point.y()));
    const QPointF rest = (point - whole) * scale;
    return whole + QPointF(std::round(rest.x()), std::round(rest.y())) / scale;
}

Qt::Alignment TextLayout::toQtAlignment(CGTextAlignment alignment)
{
    switch (alignment) {
    case CGTextAlignment::left:
        return Qt::AlignLeft | Qt::AlignAbsolute;
    case CGTextAlignment::center:
        return Qt::AlignHCenter;
    case CGTextAlignment::right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case CGTextAlignment::natural:
        break;
    }
    return Qt::AlignLeft;
}

TextLayout::TextLayout(const QString& text, const QFont& font, const CGTextStyle& style, int width)
    : m_font(font)
    , m_style(style)
    , m_readsFromTheRight(text.isRightToLeft())
{
    if (!style.wraps) {
        layOutLine(withoutControlCharacters(text), width);
        return;
    }
    for (const QString& paragraph : text.split(QLatin1Char('\n')))
        layOutParagraph(paragraph, width);
}

void TextLayout::layOutLine(const QString& text, int width)
{
    const auto layOut = [this](const QString& line) {
        auto layout = std::make_unique<QTextLayout>(line, m_font);
        QTextOption option;
        option.setFlags(QTextOption::IncludeTrailingSpaces);
        layout->setTextOption(option);
        layout->setCacheEnabled(true);
        layout->beginLayout();
        layout->createLine();
        layout->endLayout();
        return layout;
    };
    auto layout = layOut(text);
    if (layout->lineAt(0).naturalTextWidth() > width)
        layout = layOut(QFontMetricsF(m_font).elidedText(text, Qt::ElideRight, width));
    m_paragraphs.push_back(std::move(layout));
    m_height = QFontMetrics(m_font).height();
}

void TextLayout::layOutParagraph(const QString& text, int width)
{
    auto layout = std::make_unique<QTextLayout>(text, m_font);
    QTextOption option(toQtAlignment(m_style.alignment));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout->setTextOption(option);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({0, m_height});
        m_height += line.height();
    }
    layout->endLayout();
    m_paragraphs.push_back(std::move(layout));
}

QPointF TextLayout::lineOrigin(const CGRect& rect) const
{
    // The same sums, in the same whole points, as in a line editor.
    const QTextLine line = m_paragraphs.front()->lineAt(0);
    const QFontMetrics metrics(m_font);
    const int textWidth = qRound(line.naturalTextWidth());
    const int width = static_cast<int>(rect.size.width);
    const int top = (static_cast<int>(rect.size.height) - metrics.height() + 1) / 2;
    const double y = rect.minY() + top - (qRound(line.ascent()) - metrics.ascent());
    const bool right = m_style.alignment == CGTextAlignment::right
        || (m_style.alignment == CGTextAlignment::natural && m_readsFromTheRight);
    if (right)
        return {rect.minX() + width - textWidth, y};
    const int left = m_style.alignment == CGTextAlignment::center ? (width + 1 - textWidth) / 2 : 0;
    return {rect.minX() + left, y};
}

void TextLayout::draw(QPainter& painter, const CGRect& unsnapped) const
{
    const CGRect rect = snappedRect(painter, unsnapped);
    if (!m_style.wraps) {
        m_paragraphs.front()->draw(&painter, lineOrigin(rect));
        return;
    }
    const QRectF visible(rect.minX(), rect.minY(), rect.size.width, rect.size.height);
    const bool overflows = m_height > rect.size.height;
    if (overflows) {
        painter.save();
        painter.setClipRect(visible, Qt::IntersectClip);
    }
    for (const auto& paragraph : m_paragraphs)
        paragraph->draw(&painter, visible.topLeft(), {}, overflows ? visible : QRectF());
    if (overflows)
        painter.restore();
}

CGTextMetrics TextLayout::metrics() const
{
    double width = 0;
    for (const auto& paragraph : m_paragraphs) {
        for (int line = 0; line < paragraph->lineCount(); ++line)
            width = std::max(width, paragraph->lineAt(line).naturalTextWidth());
    }
    return {{std::ceil(width), m_height}, m_readsFromTheRight};
}

} // namespace velmorath
