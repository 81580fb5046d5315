#pragma once

#include "CGText.h"
#include "TextLayout.h"
#include <QCache>
#include <map>
#include <string_view>

namespace velmorath {

struct TextKey {
    QByteArray utf8;
    CGFont font;
    CGTextAlignment alignment;
    bool wraps;
    int width;

    bool operator==(const TextKey&) const = default;
};

size_t qHash(const TextKey&, size_t seed);

/// Fonts and the texts laid out last: shaping a text costs more than drawing it, and a frame draws
/// mostly what the frame before drew.
class TextCache {
public:
    /// Valid until the next call.
    const TextLayout& find(std::string_view utf8, const CGTextStyle&, CGFloat width);

    const QFont& font(const CGFont&);

private:
    struct FontOrder {
        bool operator()(const CGFont&, const CGFont&) const;
    };

    std::map<CGFont, QFont, FontOrder> m_fonts;
    QCache<TextKey, TextLayout> m_layouts{1000};
};

} // namespace velmorath
