#include "IncomingBytes.h"
#include <algorithm>
#include <utility>

namespace velmorath {

namespace {

std::string s_bytes;

} // namespace

char* IncomingBytes::makeRoom(std::size_t size)
{
    // Long enough to lie outside the object itself, aligned for numbers.
    constexpr std::size_t smallestRoom = 64;
    s_bytes.resize(std::max(size, smallestRoom));
    return s_bytes.data();
}

std::string IncomingBytes::take(std::size_t size)
{
    s_bytes.resize(size);
    return std::exchange(s_bytes, {});
}

const double* IncomingBytes::numbers()
{
    return reinterpret_cast<const double*>(s_bytes.data());
}

} // namespace velmorath
