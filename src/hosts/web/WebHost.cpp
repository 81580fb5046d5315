#include "WebHost.h"

namespace velmorath {

int WebHost::run(HostClient& client)
{
    m_client = &client;
    client.screenChanged();
    return 0;
}

} // namespace velmorath
