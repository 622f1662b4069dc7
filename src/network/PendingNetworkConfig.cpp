// The rules by which the management network window takes each dialog's result.
#include "network/PendingNetworkConfig.h"

#include <algorithm>

namespace Tarn {

using namespace HostCtl::Network;

namespace {

bool IsStatic(const Ipv6Network& network) {
    return network.GetIpv6AddressType() == Ipv6Network::TYPE_STATIC;
}

} // namespace

void PendingNetworkConfig::TakeAdapters(const AdaptersResult& result) {
    if (result.adapters == adapters && result.activeUplinks == activeUplinks)
        return;
    changed = true;
    adapters = result.adapters;
    activeUplinks = result.activeUplinks;
}

void PendingNetworkConfig::TakeVlan(uint16_t id) {
    if (id == vlanId)
        return;
    changed = true;
    vlanId = id;
}

void PendingNetworkConfig::TakeIpv4(const IpConfig& result) {
    const bool resultStatic = !result.GetUseDhcp() && !result.GetIpv4UseNone();
    const bool pendingStatic = !stored.GetUseDhcp() && !running.GetIpv4UseNone();
    const bool differs = result.GetUseDhcp() != stored.GetUseDhcp() ||
                         result.GetIpv4UseNone() != running.GetIpv4UseNone() ||
                         (resultStatic && pendingStatic &&
                          !(result.GetIpv4Address() == running.GetIpv4Address() &&
                            result.GetIpv4Netmask() == running.GetIpv4Netmask() &&
                            result.GetIpv4Gateway() == running.GetIpv4Gateway()));
    if (!differs)
        return;
    changed = true;
    stored.SetUseDhcp(result.GetUseDhcp());
    if (result.GetIpv4UseNone()) {
        running.SetIpv4UseNone();
    } else {
        running.SetUseDhcp(running.GetUseDhcp(), false);
        running.SetIpv4Address(result.GetIpv4Address());
        running.SetIpv4Netmask(result.GetIpv4Netmask());
    }
    running.SetIpv4Gateway(result.GetIpv4Gateway());
}

void PendingNetworkConfig::TakeIpv6(const Ipv6Result& result) {
    ipv6Enabled = result.enabled;
    if (!result.enabled)
        return;
    const bool gatewayDiffers = !(result.gateway == running.GetIpv6Gateway());
    if (result.dhcpv6 != stored.GetUseIpv6Dhcp() ||
        result.routerAdvertised != stored.GetUseIpv6RouterAdvertised() || gatewayDiffers ||
        result.staticEdited)
        changed = true;
    if (gatewayDiffers)
        ipv6GatewayChanged = true;
    stored.SetUseIpv6Dhcp(result.dhcpv6);
    stored.SetUseIpv6RouterAdvertised(result.routerAdvertised);
    // Only the static addresses are the administrator's; those from autoconfiguration and DHCPv6 stay.
    for (const Ipv6Network& old : StaticIpv6Networks())
        running.RemoveIpv6Network(old);
    for (const Ipv6Network& network : result.staticNetworks)
        running.AddIpv6Network(network);
    running.SetIpv6Gateway(result.gateway);
}

void PendingNetworkConfig::TakeDns(const DnsResult& result) {
    bool differs = result.fromDhcp != stored.GetDhcpDns();
    if (!result.fromDhcp)
        differs = differs || DnsServerText(result.primary) != DnsServerText(primaryDns) ||
                  DnsServerText(result.alternate) != DnsServerText(alternateDns) ||
                  result.hostname != hostname;
    if (differs)
        changed = true;
    stored.SetDhcpDns(result.fromDhcp);
    if (!result.fromDhcp) {
        primaryDns = result.primary;
        alternateDns = result.alternate;
        hostname = result.hostname;
    }
}

void PendingNetworkConfig::TakeSuffixes(const std::string& text) {
    if (text == suffixes)
        return;
    changed = true;
    suffixes = text;
}

std::vector<Ipv6Network> PendingNetworkConfig::StaticIpv6Networks() const {
    std::vector<Ipv6Network> networks;
    std::ranges::copy_if(running.GetIpv6Network(), std::back_inserter(networks), IsStatic);
    return networks;
}

void ChooseDnsServers(const std::vector<Ipv4Address>& ipv4, const std::vector<Ipv6Address>& ipv6,
                      DnsServer& primary, DnsServer& alternate) {
    primary.reset();
    alternate.reset();
    if (!ipv4.empty())
        primary = ipv4[0];
    else if (!ipv6.empty())
        primary = ipv6[0];
    if (!ipv4.empty() && !ipv6.empty())
        alternate = ipv6[0];
    else if (ipv4.size() > 1)
        alternate = ipv4[1];
    else if (ipv6.size() > 1)
        alternate = ipv6[1];
}

std::string JoinSuffixes(const std::vector<std::string>& domains) {
    std::string text;
    for (const auto& domain : domains)
        text += (text.empty() ? "" : ", ") + domain;
    return text;
}

std::vector<std::string> SplitSuffixes(const std::string& text) {
    std::vector<std::string> pieces;
    std::string piece;
    for (char c : text + " ") {
        if (c == ' ' || c == '\t' || c == '\n' || c == ',') {
            if (!piece.empty())
                pieces.push_back(piece);
            piece.clear();
        } else {
            piece += c;
        }
    }
    return pieces;
}

} // namespace Tarn
