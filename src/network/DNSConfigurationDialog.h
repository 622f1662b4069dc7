// The DNS dialog of the management network: servers and host name from DHCP, or typed in.
#pragma once

#include "network/PendingNetworkConfig.h"

#include <optional>
#include <string>

namespace Tarn {

class Frame;

class DNSConfigurationDialog {
public:
    DNSConfigurationDialog(Frame* parent, bool fromDhcp, bool dhcpInUse, const DnsServer& primary,
                           const DnsServer& alternate, std::string hostname);
    std::optional<DnsResult> Ask();

private:
    Frame* parent_;
    bool fromDhcp_;
    bool dhcpInUse_;
    DnsServer primary_;
    DnsServer alternate_;
    std::string hostname_;
};

} // namespace Tarn
