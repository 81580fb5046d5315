#include "TextCache.h"
#include <QFontDatabase>
#include <tuple>

namespace velmorath {

namespace {

/// Wider than any screen, and still exact in Qt's fixed-point coordinates.
constexpr int widestLine = 1 << 20;

QFont makeFont(const CGFont& from)
{
    QFont font;
    const QString family = QString::fromStdString(from.family);
    if (!family.isEmpty() && QFontDatabase::hasFamily(family))
        font.setFamily(family);
    font.setPixelSize(std::max(1, qRound(from.size)));
    font.setBold(from.bold);
    // An editor that fades is painted through a transparent picture, where coloured edges are impossible.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

} // namespace

size_t qHash(const TextKey& key, size_t seed)
{
    return qHashMulti(
        seed, key.utf8, key.font.size, key.font.bold, static_cast<int>(key.alignment), key.width);
}

bool TextCache::FontOrder::operator()(const CGFont& left, const CGFont& right) const
{
    return std::tie(left.family, left.size, left.bold) < std::tie(right.family, right.size, right.bold);
}

const QFont& TextCache::font(const CGFont& font)
{
    const auto known = m_fonts.find(font);
    return known != m_fonts.end() ? known->second : m_fonts.emplace(font, makeFont(font)).first->second;
}

const TextLayout& TextCache::find(std::string_view utf8, const CGTextStyle& style, CGFloat width)
{
    const int wholeWidth = static_cast<int>(std::clamp(width, 0.0, static_cast<double>(widestLine)));
    const auto length = static_cast<qsizetype>(utf8.size());
    // The key borrows the text for the search; one that is kept has a copy.
    TextKey key{
        QByteArray::fromRawData(utf8.data(), length), style.font, style.alignment, style.wraps, wholeWidth};
    if (const TextLayout* known = m_layouts.object(key))
        return *known;
    key.utf8 = QByteArray(utf8.data(), length);
    const QString text = QString::fromUtf8(key.utf8);
    auto* layout = new TextLayout(text, font(style.font), style, wholeWidth);
    // A very long text counts for many short ones, but never for more than the whole cache holds.
    const qsizetype cost = std::min(m_layouts.maxCost(), 1 + length / 256);
    m_layouts.insert(key, layout, cost);
    return *layout;
}

} // namespace velmorath
