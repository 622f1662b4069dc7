// Restart result lines.
#include "network/RestartText.h"

namespace Tarn {

std::string RestartIpv6Lines(const HostCtl::Network::IpConfig& config, const std::string& label) {
    using HostCtl::Network::Ipv6Network;
    constexpr int kShown = 2;
    std::string text;
    int listed = 0;
    for (const Ipv6Network& network : config.GetIpv6Network()) {
        if (network.GetIpv6AddressType() != Ipv6Network::TYPE_STATIC ||
            network.GetIpv6Scope() == Ipv6Network::SCOPE_LINK)
            continue;
        if (listed == kShown)
            return text + "   ...\n";
        text += "\n   " + label + network.GetStringAddress();
        ++listed;
    }
    return text;
}

} // namespace Tarn
