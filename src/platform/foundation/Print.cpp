#include "Print.h"
#include "Host.h"

namespace velmorath {

void print(std::string_view line)
{
    Host::current().console().writeLine(line);
}

} // namespace velmorath
