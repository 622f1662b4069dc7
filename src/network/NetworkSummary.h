// The right-hand summaries of the management network window, composed from the pending model.
#pragma once

#include "network/NetworkAccess.h"
#include "network/PendingNetworkConfig.h"

#include <map>
#include <string>

namespace Tarn {

class StringFactory;

enum class NetworkEntry { Adapters, Vlan, Ipv4, Ipv6, Dns, Suffixes };

// The summary body of `entry`. `nics` holds the rows of the pending adapters (a missing one shows its name
// only); `ipv6InKernel` says whether IPv6 runs in the kernel now.
std::string NetworkSummary(NetworkEntry entry, const PendingNetworkConfig& pending,
                           const std::map<std::string, PhysicalNicInfo>& nics, bool ipv6InKernel,
                           const StringFactory& strings);

} // namespace Tarn
