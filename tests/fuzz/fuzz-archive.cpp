#include "KeyedUnarchiver.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    KeyedUnarchiver::setClass("_TtC9Velmorath9ToDoItem2", [](KeyedUnarchiver& unarchiver) {
        unarchiver.decodeString("text");
        unarchiver.decodeString("data");
        unarchiver.decodeBool("completed");
        return std::make_shared<Object>();
    });
    auto value = KeyedUnarchiver::unarchiveTopLevelObject({reinterpret_cast<const char*>(data), size});
    // An error says what is wrong.
    if (!value && value.error().description.empty())
        std::abort();
    return 0;
}
