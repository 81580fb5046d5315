#include "Host.h"
#include <cassert>

namespace velmorath {

namespace {

Host* s_current = nullptr;

}

Host& Host::current()
{
    assert(s_current);
    return *s_current;
}

void Host::install(Host& host)
{
    s_current = &host;
}

} // namespace velmorath
