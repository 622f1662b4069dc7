// The IPv4 dialog of the management network: disabled, dynamic or static with address, netmask and
// gateway. It edits a copy and returns it; the window decides whether it is a change.
#pragma once

#include "platform/IpConfig.h"

#include <optional>

namespace Tarn {

class Frame;

class IPConfigurationDialog {
public:
    IPConfigurationDialog(Frame* parent, bool ipv4Disabled, bool useDhcp,
                          const HostCtl::Network::IpConfig& pending);
    // The edited configuration after Enter, nothing after Esc.
    std::optional<HostCtl::Network::IpConfig> Ask();

private:
    Frame* parent_;
    bool disabled_;
    bool dhcp_;
    HostCtl::Network::IpConfig config_;
};

} // namespace Tarn
