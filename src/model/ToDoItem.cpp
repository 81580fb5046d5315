#include "ToDoItem.h"
#include "FatalError.h"

namespace velmorath {

ToDoItem::ToDoItem()
{
    fatalError("Use of unimplemented initializer 'init()' for class 'Velmorath.ToDoItem'");
}

} // namespace velmorath
