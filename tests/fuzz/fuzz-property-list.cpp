#include "PropertyList.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto value = PropertyList::parse({reinterpret_cast<const char*>(data), size});
    if (!value)
        return 0;
    // What could be read is written, and read again, and the same. As bytes, for a number may be none.
    auto written = value->binary();
    auto again = PropertyList::parse(written);
    if (!again || again->binary() != written)
        std::abort();
    return 0;
}
