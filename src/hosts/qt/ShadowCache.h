#pragma once

#include <QColor>
#include <QImage>
#include <vector>

namespace velmorath {

/// What a shadow looks like, in device pixels: a rectangle that ends softly.
struct ShadowShape {
    int width = 0;
    int height = 0;
    int cornerRadius = 0;
    int blurRadius = 0;
    QRgb color = 0;

    bool operator==(const ShadowShape&) const = default;
};

/// Blurred pictures of rectangles. One picture serves every rectangle of the same softness that is at
/// least as large: its middle is stretched.
class ShadowCache {
public:
    /// The picture is larger than the shape by the blur radius on every side. Valid until the next call.
    const QImage& find(const ShadowShape&);

private:
    struct Entry {
        ShadowShape shape;
        QImage image;
    };

    std::vector<Entry> m_entries;
};

} // namespace velmorath
