#include "ShadowCache.h"
#include <QPainter>
#include <algorithm>

namespace velmorath {

namespace {

/// The mean of each byte's neighbours, along a line of bytes that lie a stride apart.
void blurLine(uchar* line, int count, qsizetype stride, int reach, std::vector<int>& sums)
{
    sums.resize(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i < count; ++i)
        sums[static_cast<std::size_t>(i) + 1] = sums[static_cast<std::size_t>(i)] + line[i * stride];
    for (int i = 0; i < count; ++i) {
        const int first = std::max(0, i - reach);
        const int last = std::min(count, i + reach + 1);
        const int sum = sums[static_cast<std::size_t>(last)] - sums[static_cast<std::size_t>(first)];
        line[i * stride] = static_cast<uchar>(sum / (2 * reach + 1));
    }
}

QImage render(const ShadowShape& shape)
{
    QImage mask(
        shape.width + 2 * shape.blurRadius, shape.height + 2 * shape.blurRadius, QImage::Format_Alpha8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    const QRect core(shape.blurRadius, shape.blurRadius, shape.width, shape.height);
    painter.drawRoundedRect(core, shape.cornerRadius, shape.cornerRadius);
    painter.end();

    // Three means in a row look like a Gaussian, and together reach as far as the radius.
    std::vector<int> sums;
    const int reach = std::max(1, shape.blurRadius / 3);
    uchar* bytes = mask.bits();
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < mask.height(); ++y)
            blurLine(bytes + y * mask.bytesPerLine(), mask.width(), 1, reach, sums);
        for (int x = 0; x < mask.width(); ++x)
            blurLine(bytes + x, mask.height(), mask.bytesPerLine(), reach, sums);
    }

    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor::fromRgba(shape.color));
    QPainter tint(&image);
    tint.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    tint.drawImage(0, 0, mask);
    return image;
}

} // namespace

const QImage& ShadowCache::find(const ShadowShape& shape)
{
    const auto known = std::find_if(
        m_entries.begin(), m_entries.end(), [&](const Entry& entry) { return entry.shape == shape; });
    if (known != m_entries.end())
        return known->image;
    constexpr std::size_t mostEntries = 16;
    if (m_entries.size() == mostEntries)
        m_entries.erase(m_entries.begin());
    m_entries.push_back({shape, render(shape)});
    return m_entries.back().image;
}

} // namespace velmorath
