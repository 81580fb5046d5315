#include "IncomingBytes.h"
#include <utility>

namespace velmorath {

namespace {

std::string s_bytes;

} // namespace

char* IncomingBytes::makeRoom(std::size_t size)
{
    s_bytes.resize(size);
    return s_bytes.data();
}

std::string IncomingBytes::take(std::size_t size)
{
    s_bytes.resize(size);
    return std::exchange(s_bytes, {});
}

} // namespace velmorath
