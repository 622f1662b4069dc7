// Reading the management interface's settings into the pending model when the management network window
// opens: once, in a fixed order, never re-read while the window lives.
#pragma once

#include "network/PendingNetworkConfig.h"
#include "platform/DnsConfig.h"
#include "platform/Network.h"
#include "platform/RoutingInfo.h"

#include <memory>

namespace Tarn {

enum class OpenOutcome {
    Ready,
    NoInterface, // logged; the window reports it and closes
    ReadFailed,  // the uplinks, teaming or VLAN could not be read (logged): the window closes silently
};

OpenOutcome OpenManagementNetwork(PendingNetworkConfig& pending,
                                  std::unique_ptr<HostCtl::Network::TesNic>& management,
                                  TesCtl::Network::DnsConfigImpl& dns,
                                  TesCtl::Network::RoutingInfoImpl& routing);

} // namespace Tarn
