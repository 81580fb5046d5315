#include "UINib.h"
#include "FatalError.h"

namespace velmorath {

const UINib& UINib::named(std::string_view name)
{
    const UINib* found = Registry<UINib>::find(name);
    if (!found)
        fatalError("There is no interface file named " + std::string(name));
    return *found;
}

} // namespace velmorath
