#include "HeadlessScreen.h"
#include "HeadlessImage.h"
#include <algorithm>
#include <cmath>

namespace velmorath {

namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Hebrew and Arabic letters are the two-byte sequences from U+0590 to U+07BF.
bool isFromTheRight(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    return byte >= 0xD6 && byte <= 0xDE;
}

} // namespace

CGTextMetrics HeadlessScreen::measure(std::string_view utf8, const CGFont& font, CGFloat wrapWidth)
{
    const auto characters =
        std::count_if(utf8.begin(), utf8.end(), [](char byte) { return !isContinuation(byte); });
    const CGFloat size = std::round(font.size);
    CGTextMetrics metrics;
    metrics.size = {static_cast<CGFloat>(characters) * size * 0.6, size * 1.2};
    if (wrapWidth > 0 && metrics.size.width > wrapWidth)
        metrics.size = {wrapWidth, metrics.size.height * std::ceil(metrics.size.width / wrapWidth)};
    metrics.readsFromTheRight = !utf8.empty() && isFromTheRight(utf8.front());
    return metrics;
}

std::shared_ptr<CGImage> HeadlessScreen::decodeImage(std::string_view bytes)
{
    const bool isPicture = bytes.starts_with("\x89PNG") || bytes.starts_with("\xFF\xD8");
    if (!isPicture || !m_decodesImages)
        return nullptr;
    constexpr std::size_t longestPixel = 100;
    if (bytes.size() < longestPixel)
        return std::make_shared<HeadlessImage>(CGSize{1, 1}, CGColor::gray(0));
    return std::make_shared<HeadlessImage>(CGSize{72, 72}, CGColor{0, 0, 0, 0}, bytes.size());
}

} // namespace velmorath
