// Summary texts of the management network window: white values, then the light-grey help of the entry.
#include "network/NetworkSummary.h"

#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {

using namespace HostCtl::Network;

namespace {

std::string OrNotSet(const std::string& value, const StringFactory& s) {
    return value.empty() ? s.GetString(TextId::NotSet) : value;
}

std::string Ipv4Text(const Ipv4Address& address, const StringFactory& s) {
    return address.GetBinaryAddress() == 0 ? s.GetString(TextId::NotSet) : address.GetStringAddress();
}

std::string Adapters(const PendingNetworkConfig& p, const std::map<std::string, PhysicalNicInfo>& nics,
                     const StringFactory& s) {
    std::string text = "{color:white}";
    for (const auto& name : p.adapters) {
        auto nic = nics.find(name);
        std::string detail;
        if (nic != nics.end())
            detail = nic->second.hardwareLabel.empty() ? nic->second.macAddress : nic->second.hardwareLabel;
        text += name + " (" + detail + ")\n";
    }
    if (p.adapters.empty())
        text += std::string(s.GetString(TextId::NotSet)) + "\n";
    return text + "\n{/color}{color:light-grey}" + s.GetString(TextId::NetworkAdaptersHelp);
}

std::string Vlan(const PendingNetworkConfig& p, const StringFactory& s) {
    std::string id = p.vlanId == 0 ? s.GetString(TextId::NotSet) : std::to_string(p.vlanId);
    return "{color:white}" + id + "\n\n{/color}{color:light-grey}" + s.GetString(TextId::VlanHelp) +
           "{/color}";
}

std::string Ipv4(const PendingNetworkConfig& p, const StringFactory& s) {
    const unsigned mode = p.stored.GetUseDhcp()        ? TextId::Automatic
                          : p.running.GetIpv4UseNone() ? TextId::None
                                                       : TextId::Manual;
    return std::string("{color:white}") + s.GetString(mode) + "\n\n" + s.GetString(TextId::Ipv4Address) +
           ": " + Ipv4Text(p.running.GetIpv4Address(), s) + "\n" + s.GetString(TextId::SubnetMask) + ": " +
           Ipv4Text(p.running.GetIpv4Netmask(), s) + "\n" + s.GetString(TextId::DefaultGateway) + ": " +
           Ipv4Text(p.running.GetIpv4Gateway(), s) + "\n\n{/color}{color:light-grey}" +
           s.GetString(TextId::Ipv4ConfigurationHelp) + "{/color}";
}

std::string Ipv6(const PendingNetworkConfig& p, bool inKernel, const StringFactory& s) {
    const bool automatic = p.stored.GetUseIpv6Dhcp() || p.stored.GetUseIpv6RouterAdvertised();
    const unsigned mode = !p.ipv6Enabled ? TextId::Disabled : automatic ? TextId::Automatic : TextId::Manual;
    std::string text = std::string("{color:white}") + s.GetString(mode) + "\n\n";
    if (!p.ipv6Enabled) {
        text += s.GetString(TextId::Ipv6SupportHelp);
    } else if (!inKernel) {
        text += s.GetString(TextId::Ipv6EnabledAfterReboot);
    } else {
        text += std::string(s.GetString(TextId::Ipv6Addresses)) + ":\n";
        const auto& networks = p.running.GetIpv6Network();
        for (size_t i = 0; i < networks.size() && i < 3; ++i)
            text += networks[i].GetStringAddress() + "\n";
        if (networks.size() > 3)
            text += "...\n";
        if (networks.empty())
            text += std::string(s.GetString(TextId::NotSet)) + "\n";
        const Ipv6Address& gateway = p.running.GetIpv6Gateway();
        text += "\n" + std::string(s.GetString(TextId::DefaultGateway)) + ": " +
                (gateway.IsUnspecified() ? s.GetString(TextId::NotSet) : gateway.GetScopedStringAddress());
    }
    return text + "\n\n{/color}{color:light-grey}" + s.GetString(TextId::Ipv6ConfigurationHelp) + "{/color}";
}

std::string Dns(const PendingNetworkConfig& p, const StringFactory& s) {
    const unsigned mode = p.stored.GetDhcpDns() ? TextId::Automatic : TextId::Manual;
    return std::string("{color:white}") + s.GetString(mode) + "\n\n" + s.GetString(TextId::PrimaryDnsServer) +
           ":\n" + OrNotSet(DnsServerText(p.primaryDns), s) + "\n" + s.GetString(TextId::AlternateDnsServer) +
           ":\n" + OrNotSet(DnsServerText(p.alternateDns), s) + "\n\n" + s.GetString(TextId::Hostname) +
           "\n" + OrNotSet(p.hostname, s) + "\n\n{/color}{color:light-grey}" +
           s.GetString(TextId::DnsConfigurationHelp) + "{/color}";
}

std::string Suffixes(const PendingNetworkConfig& p, const StringFactory& s) {
    return "{color:white}" + OrNotSet(p.suffixes, s) + "\n\n{/color}{color:light-grey}" +
           s.GetString(TextId::DnsSuffixesHelp) + "{/color}";
}

} // namespace

std::string NetworkSummary(NetworkEntry entry, const PendingNetworkConfig& pending,
                           const std::map<std::string, PhysicalNicInfo>& nics, bool ipv6InKernel,
                           const StringFactory& strings) {
    switch (entry) {
    case NetworkEntry::Adapters:
        return Adapters(pending, nics, strings);
    case NetworkEntry::Vlan:
        return Vlan(pending, strings);
    case NetworkEntry::Ipv4:
        return Ipv4(pending, strings);
    case NetworkEntry::Ipv6:
        return Ipv6(pending, ipv6InKernel, strings);
    case NetworkEntry::Dns:
        return Dns(pending, strings);
    case NetworkEntry::Suffixes:
        return Suffixes(pending, strings);
    }
    return "";
}

} // namespace Tarn
