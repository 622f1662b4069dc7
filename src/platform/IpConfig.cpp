// The IP configuration's few operations that are more than a field access.
#include "platform/IpConfig.h"

#include <algorithm>

namespace HostCtl::Network {

void IpConfig::SetUseDhcp(bool useDhcp) {
    useDhcp_ = useDhcp;
    if (useDhcp)
        ipv4UseNone_ = false;
}

void IpConfig::SetUseDhcp(bool useDhcp, bool ipv4UseNone) {
    useDhcp_ = useDhcp;
    ipv4UseNone_ = ipv4UseNone;
}

void IpConfig::AddIpv6Network(const Ipv6Network& network) {
    if (std::find(ipv6Networks_.begin(), ipv6Networks_.end(), network) == ipv6Networks_.end())
        ipv6Networks_.push_back(network);
}

bool IpConfig::RemoveIpv6Network(const Ipv6Network& network) {
    auto it = std::find(ipv6Networks_.begin(), ipv6Networks_.end(), network);
    if (it == ipv6Networks_.end())
        return false;
    ipv6Networks_.erase(it);
    return true;
}

} // namespace HostCtl::Network
