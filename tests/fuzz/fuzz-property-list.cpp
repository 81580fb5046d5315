#include "PropertyListSerialization.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto value = parseBinaryPropertyList({reinterpret_cast<const char*>(data), size});
    if (!value)
        return 0;
    // What could be read is written, and read again, and the same. As bytes, for a number may be none.
    auto written = binaryPropertyList(*value);
    auto again = parseBinaryPropertyList(written);
    if (!again || binaryPropertyList(*again) != written)
        std::abort();
    return 0;
}
