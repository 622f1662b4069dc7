// Enter-time validation of the management network dialogs, in the order the rows are shown.
#include "network/NetworkDialogRules.h"

#include "ui/TextIds.h"

#include <algorithm>

namespace Tarn {

using namespace HostCtl::Network;

std::optional<FieldError> ValidateIpv4(Ipv4Mode mode, const std::string& address, const std::string& netmask,
                                       const std::string& gateway, IpConfig& config) {
    config.SetUseDhcp(mode == Ipv4Mode::Dynamic, mode == Ipv4Mode::Disabled);
    if (mode != Ipv4Mode::Static) {
        config.SetIpv4Gateway(Ipv4Address());
        return std::nullopt;
    }
    if (!Ipv4Address::IsValidAddress(address))
        return FieldError{3, TextId::InvalidIpAddress, TextId::ReenterIpv4Address};
    if (!Ipv4Address::IsValidAddress(netmask) || !Ipv4Address(netmask).IsValidNetmask())
        return FieldError{4, TextId::InvalidSubnet, TextId::ReenterSubnet};
    if (!Ipv4Address::IsValidAddress(gateway))
        return FieldError{5, TextId::InvalidGatewayAddress, TextId::ReenterGateway};
    config.SetIpv4Address(Ipv4Address(address));
    config.SetIpv4Netmask(Ipv4Address(netmask));
    config.SetIpv4Gateway(Ipv4Address(gateway));
    return std::nullopt;
}

Ipv6Mode Ipv6ModeOf(bool enabled, const IpConfig& stored) {
    if (!enabled)
        return Ipv6Mode::Disabled;
    if (stored.GetUseIpv6Dhcp())
        return Ipv6Mode::Dhcpv6;
    if (stored.GetUseIpv6RouterAdvertised())
        return Ipv6Mode::RouterAdvertised;
    return Ipv6Mode::Static;
}

std::optional<FieldError> ValidateIpv6(const Ipv6Input& input, const Ipv6Result& initial,
                                       Ipv6Result& result) {
    result = initial;
    result.enabled = input.mode != Ipv6Mode::Disabled;
    result.dhcpv6 = input.mode == Ipv6Mode::Dhcpv6;
    result.routerAdvertised = input.mode == Ipv6Mode::RouterAdvertised;
    result.staticEdited = false;
    if (input.mode != Ipv6Mode::Static)
        return std::nullopt;

    std::vector<Ipv6Network> networks;
    for (size_t i = 0; i < input.statics.size(); ++i) {
        const std::string& text = input.statics[i];
        if (text.empty())
            continue;
        const int row = 4 + static_cast<int>(i);
        if (!Ipv6Network::IsValidAddressAndNetmask(text))
            return FieldError{row, TextId::InvalidIpAddress, TextId::ReenterIpv6Network};
        Ipv6Network network(text);
        if (network.GetAddress().IsLinkLocal())
            return FieldError{row, TextId::InvalidScope, TextId::NoLinkLocalStaticAddress};
        network.SetIpv6AddressType(Ipv6Network::TYPE_STATIC);
        network.SetIpv6Scope(Ipv6Network::ScopeOf(network.GetAddress()));
        networks.push_back(network);
    }
    Ipv6Address gateway;
    if (!input.gateway.empty()) {
        if (!Ipv6Address::IsValidAddress(input.gateway))
            return FieldError{7, TextId::InvalidGatewayAddress, TextId::ReenterIpv6Gateway};
        gateway = Ipv6Address(input.gateway);
        if (gateway.IsLinkLocal())
            return FieldError{7, TextId::InvalidGatewayAddress, TextId::NoLinkLocalGateway};
    }
    result.staticEdited = networks != initial.staticNetworks;
    result.staticNetworks = networks;
    result.gateway = gateway;
    return std::nullopt;
}

std::optional<FieldError> ValidateDns(bool automatic, const std::string& primary,
                                      const std::string& alternate, const std::string& hostname,
                                      DnsResult& result) {
    result = DnsResult{automatic, std::nullopt, std::nullopt, hostname};
    if (automatic)
        return std::nullopt;
    const std::string* texts[] = {&primary, &alternate};
    for (int i = 0; i < 2; ++i) {
        const std::string& text = *texts[i];
        if (!text.empty() && !Ipv6Address::IsValidAddress(text) && !Ipv4Address::IsValidAddress(text))
            return FieldError{2 + i, TextId::InvalidDnsServerAddress, TextId::ReenterDnsServer};
    }
    result.primary = DnsServerFromText(primary);
    result.alternate = DnsServerFromText(alternate);
    return std::nullopt;
}

VlanCheck CheckVlan(const std::string& text, uint16_t& id) {
    if (text.empty()) {
        id = 0;
        return VlanCheck::Valid;
    }
    if (text.size() > 5 ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return VlanCheck::Invalid;
    const int value = std::stoi(text);
    if (value < 1 || value > 4095)
        return VlanCheck::Invalid;
    id = static_cast<uint16_t>(value);
    return value == 4095 ? VlanCheck::NeedsWarning : VlanCheck::Valid;
}

void ToggleAdapter(std::vector<std::string>& selected, const std::string& name) {
    auto it = std::find(selected.begin(), selected.end(), name);
    if (it == selected.end())
        selected.push_back(name);
    else
        selected.erase(it);
}

std::string AdapterRowText(const std::string& name, const std::string& label, const std::string& mac,
                           const std::string& status) {
    // The label column is 30 cells: the label, " (", the MAC address, ")" and one blank before the status.
    constexpr size_t kColumn = 30;
    constexpr std::string_view kCut = "(...)";
    const size_t room = kColumn - 1 - (mac.size() + 3);
    std::string shown = label;
    if (shown.size() > room)
        shown =
            room > kCut.size() ? shown.substr(0, room - kCut.size()) + std::string(kCut) : std::string(kCut);
    return "{align:padding:13}" + name + "{/align}{align:padding:30}" + shown + " (" + mac + "){/align}" +
           status;
}

} // namespace Tarn
