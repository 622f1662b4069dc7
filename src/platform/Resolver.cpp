// Resolution on a real host goes through the system resolver; on the simulated host through its model.
#include "platform/Resolver.h"

#include "platform/HostRoot.h"
#include "platform/sim/SimResolver.h"

#include <netdb.h>
#include <sys/socket.h>

namespace TesCtl::Network {

bool ResolveHostName(const std::string& name) {
    if (name.empty())
        return false;
    if (Platform::IsSimulatedHost())
        return Platform::Sim::ResolveHostName(name);
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    int rc = getaddrinfo(name.c_str(), nullptr, &hints, &found);
    if (found != nullptr)
        freeaddrinfo(found);
    return rc == 0;
}

} // namespace TesCtl::Network
