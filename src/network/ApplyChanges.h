// Writing the pending management network changes to the host, stage by stage in a fixed order. A stage that
// fails is logged and reported and the next stage still runs; nothing is rolled back. The management
// service is refreshed however the sequence ends.
#pragma once

#include "network/PendingNetworkConfig.h"
#include "platform/DnsConfig.h"
#include "platform/Network.h"
#include "platform/RoutingInfo.h"

#include <string>

namespace Tarn {

// What the sequence needs from the screen that runs it.
class ApplyFeedback {
public:
    virtual ~ApplyFeedback() = default;
    // A failed stage: show `message` under "Enable Management Network: Error".
    virtual void ShowError(const std::string& message) = 0;
    // The IPv4 configuration was rewritten: redraw the summary and the screen.
    virtual void Redraw() = 0;
    // The IPv6 switch changed: offer the host restart it needs.
    virtual void RestartHost() = 0;
    // Makes the management service reread the network; RefreshManagementService() unless a test says.
    virtual void RefreshManagementService();
};

void ApplyChanges(PendingNetworkConfig& pending, HostCtl::Network::TesNic& management,
                  TesCtl::Network::DnsConfigImpl& dns, TesCtl::Network::RoutingInfoImpl& routing,
                  ApplyFeedback& feedback);

} // namespace Tarn
