#pragma once

#include <cstring>
#include <type_traits>

namespace velmorath {

/// The same bits as another type, as std::bit_cast does it: not every standard library has that yet.
template <typename To, typename From> To bitCast(const From& from)
{
    static_assert(sizeof(To) == sizeof(From));
    static_assert(std::is_trivially_copyable_v<To> && std::is_trivially_copyable_v<From>);
    To to;
    std::memcpy(&to, &from, sizeof to);
    return to;
}

} // namespace velmorath
