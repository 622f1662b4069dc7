// The IPv6 dialog of the management network: off, router advertisement, DHCPv6 or static addresses with a
// gateway. It returns the choice, the static networks and the gateway; the window takes them.
#pragma once

#include "network/NetworkDialogRules.h"
#include "network/PendingNetworkConfig.h"

#include <optional>

namespace Tarn {

class Frame;

class IPv6ConfigurationDialog {
public:
    // `stored` gives the mode flags; `running` the static networks and the gateway shown.
    IPv6ConfigurationDialog(Frame* parent, bool enabled, const HostCtl::Network::IpConfig& stored,
                            const HostCtl::Network::IpConfig& running);
    std::optional<Ipv6Result> Ask();

private:
    Frame* parent_;
    Ipv6Mode mode_;
    Ipv6Result initial_;
};

} // namespace Tarn
