#include "CommandBuffer.h"
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace velmorath {

namespace {

std::uint32_t toByte(CGFloat component)
{
    // Written so that what is no number becomes zero.
    return component > 0 ? static_cast<std::uint32_t>(std::lround(std::min(component, 1.0) * 255)) : 0;
}

} // namespace

double CommandBuffer::packed(const CGColor& color)
{
    return toByte(color.red) << 24 | toByte(color.green) << 16 | toByte(color.blue) << 8
        | toByte(color.alpha);
}

void CommandBuffer::put(const CGRect& rect)
{
    m_words.insert(m_words.end(), {rect.minX(), rect.minY(), rect.size.width, rect.size.height});
}

void CommandBuffer::put(const CGAffineTransform& t)
{
    m_words.insert(m_words.end(), {t.a, t.b, t.c, t.d, t.tx, t.ty});
}

void CommandBuffer::put(std::string_view text)
{
    put(static_cast<double>(text.size()));
    const std::size_t start = m_words.size();
    m_words.resize(start + (text.size() + sizeof(double) - 1) / sizeof(double));
    std::memcpy(m_words.data() + start, text.data(), text.size());
}

} // namespace velmorath
