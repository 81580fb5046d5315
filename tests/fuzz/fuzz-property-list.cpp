#include "PropertyListSerialization.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto value = parseBinaryPropertyList({reinterpret_cast<const char*>(data), size});
    // What could be read can be written and read again.
    if (value && !parseBinaryPropertyList(binaryPropertyList(*value)))
        std::abort();
    return 0;
}
