#include "CommandBuffer.h"
#include <cstdint>
#include <cstring>

namespace velmorath {

double CommandBuffer::packed(const CGColor& color)
{
    const auto byte = [](CGFloat component) {
        return static_cast<std::uint32_t>(CGColor::toByte(component));
    };
    return byte(color.red) << 24 | byte(color.green) << 16 | byte(color.blue) << 8 | byte(color.alpha);
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
