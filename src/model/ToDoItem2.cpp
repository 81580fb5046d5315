#include "ToDoItem2.h"
#include "KeyedArchiver.h"
#include "KeyedUnarchiver.h"

namespace velmorath {

void ToDoItem2::enterInUnarchiver()
{
    KeyedUnarchiver::setClass(std::string(className),
        [](KeyedUnarchiver& unarchiver) { return std::make_shared<ToDoItem2>(unarchiver); });
}

ToDoItem2::ToDoItem2(KeyedUnarchiver& unarchiver)
    : text(unarchiver.decodeString("text"))
    , data(unarchiver.decodeString("data"))
    , completed(unarchiver.decodeBool("completed"))
{
}

void ToDoItem2::encode(KeyedArchiver& archiver) const
{
    archiver.encodeString(text, "text");
    archiver.encodeString(data, "data");
    archiver.encodeBool(completed, "completed");
}

} // namespace velmorath
