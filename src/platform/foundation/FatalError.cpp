#include "FatalError.h"
#include "Host.h"
#include <cstdio>
#include <cstdlib>

namespace velmorath {

void fatalError(std::string_view message)
{
    Host::current().console().flush();
    std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
    std::abort();
}

} // namespace velmorath
