#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace velmorath {

/// What the reading of one file may cost, however hostile its bytes are: with the file itself, at most 64 MB
/// and eight times its size. A reader spends what it is about to take, in bytes of memory. Work that takes no
/// memory is paid for in the same coin, and so time stays within a small multiple of the file's size, too.
class ReadingBudget {
public:
    explicit ReadingBudget(std::size_t fileSize)
        : m_left(withoutAFile + std::uint64_t(fileSize) * perByte)
    {
    }

    /// False when there is not that much left; the rest is lost then.
    bool spend(std::uint64_t cost)
    {
        bool isAffordable = cost <= m_left;
        m_left -= isAffordable ? cost : m_left;
        return isAffordable;
    }

    /// What a text takes beyond itself.
    static std::uint64_t costOf(const std::string& text)
    {
        constexpr std::uint64_t allocation = 24;
        bool isShort = text.capacity() <= std::string().capacity();
        return isShort ? 0 : text.capacity() + allocation;
    }

private:
    // Some of the 64 MB is for what allocations waste.
    static constexpr std::uint64_t withoutAFile = 48 << 20;
    static constexpr std::uint64_t perByte = 7;

    std::uint64_t m_left;
};

} // namespace velmorath
