#include "StringsTable.h"
#include "Unicode.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    for (auto& [key, value] : parseStringsTable({reinterpret_cast<const char*>(data), size})) {
        if (validUTF8(key) != key || validUTF8(value) != value)
            std::abort();
    }
    return 0;
}
