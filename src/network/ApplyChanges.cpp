// The apply sequence as a table of stages run by one loop: each stage's host-control failure becomes its
// prefix plus the failure text, logged and shown, and the loop goes on.
#include "network/ApplyChanges.h"

#include "core/Log.h"
#include "hostops/KelpCmd.h"
#include "network/NetworkAccess.h"
#include "network/SwitchListing.h"
#include "platform/ChangeBatch.h"
#include "platform/NetworkInfo.h"
#include "platform/PnicImpl.h"

#include <algorithm>

namespace Tarn {

using namespace HostCtl::Network;
using HostCtl::Lib::HostCtlException;

void ApplyFeedback::RefreshManagementService() {
    Tarn::RefreshManagementService();
}

namespace {

// Everything the stages share: the inputs and the flags one stage leaves for a later one.
struct ApplyRun {
    PendingNetworkConfig& pending;
    TesNic& management;
    TesCtl::Network::DnsConfigImpl& dns;
    TesCtl::Network::RoutingInfoImpl& routing;
    ApplyFeedback& feedback;
    IpConfig hostStored; // the interface as it was before this run
    IpConfig hostRunning;
    bool uplinksChanged = false;
    bool vlanChanged = false;
    bool ipv4Changed = false;
    bool renewIpv4 = false;
    bool renewIpv6 = false;
    bool dnsFromDhcp = false;
};

bool Contains(const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

void Adapters(ApplyRun& run) {
    auto& p = run.pending;
    std::string line = "Setting adapters to";
    for (const auto& adapter : p.adapters)
        line += " " + adapter;
    Log(LOG_INFO, "%s", line.c_str());
    std::vector<std::string> current;
    if (GetManagementUplinks(run.management, current)) {
        for (const auto& uplink : current)
            if (!Contains(p.adapters, uplink) && RemoveManagementUplink(run.management, uplink))
                run.uplinksChanged = true;
        // An adapter that serves another switch was agreed to be taken over in the adapters dialog.
        const std::string own = GetConnectionSwitchName(*run.management.GetConnectionPoint());
        for (const auto& adapter : p.adapters) {
            if (Contains(current, adapter))
                continue;
            if (const std::string user = FindUplinkUser(adapter); !user.empty() && user != own)
                ReleaseUplink(adapter, own);
            if (AddManagementUplink(run.management, adapter))
                run.uplinksChanged = true;
        }
        // The order of selection is the failover order.
        if (!p.adapters.empty())
            SetManagementTeamingOrder(run.management, p.adapters, p.activeUplinks);
        // The first uplink lends the interface its MAC address.
        if (!p.adapters.empty() && (current.empty() || current.front() != p.adapters.front())) {
            TesCtl::Network::PnicImpl pnic(p.adapters.front());
            run.management.SetMacAddressFromPnic(pnic);
        }
    }
}

void Vlan(ApplyRun& run) {
    uint16_t current = 0;
    if (GetManagementVlanId(run.management, current) && current != run.pending.vlanId &&
        SetManagementVlanId(run.management, run.pending.vlanId))
        run.vlanChanged = true;
}

void Ipv4(ApplyRun& run) {
    auto& p = run.pending;
    const std::string name = run.management.GetName();
    run.hostStored = run.management.GetConfiguredIpConfig();
    run.hostRunning = run.management.GetIpConfig();
    const bool wasStatic = !run.hostStored.GetUseDhcp() && !run.hostStored.GetIpv4UseNone();
    if (p.stored.GetUseDhcp()) {
        if (wasStatic)
            Log(LOG_INFO, "Switching to DHCP on %s", name.c_str());
        else
            run.renewIpv4 = run.uplinksChanged;
        p.running.SetUseDhcp(true);
    } else if (p.running.GetIpv4UseNone()) {
        Log(LOG_INFO, "Setting ipv4 configuration to none on %s", name.c_str());
        p.running.SetUseDhcp(false, true);
        run.ipv4Changed = true;
    } else if (!(wasStatic && p.running.GetIpv4Address() == run.hostRunning.GetIpv4Address() &&
                 p.running.GetIpv4Netmask() == run.hostRunning.GetIpv4Netmask())) {
        Log(LOG_INFO, "Setting ipv4 configuration to %s %s on %s",
            p.running.GetIpv4Address().GetStringAddress().c_str(),
            p.running.GetIpv4Netmask().GetStringAddress().c_str(), name.c_str());
        p.running.SetUseDhcp(false, false);
        run.ipv4Changed = true;
    }
}

void Ipv6(ApplyRun& run) {
    auto& p = run.pending;
    TesCtl::Network::NetworkInfoImpl().SetTesIpv6Enabled(p.ipv6Enabled);
    if (!p.ipv6Enabled) {
        // Without IPv6 the name servers may have come over DHCPv6: ask the IPv4 server again.
        if (p.running.GetUseDhcp() && p.stored.GetDhcpDns() && p.ipv6EnabledAtStart)
            run.renewIpv4 = true;
        return;
    }
    Log(LOG_INFO, "Setting ipv6 configuration");
    if (!p.ipv6EnabledAtStart)
        p.running.EnableIpv6();
    p.running.SetUseIpv6Dhcp(p.stored.GetUseIpv6Dhcp());
    p.running.SetUseIpv6RouterAdvertised(p.stored.GetUseIpv6RouterAdvertised());
    if (p.stored.GetUseIpv6Dhcp() && run.hostRunning.GetUseIpv6Dhcp())
        run.renewIpv6 = run.uplinksChanged;
}

void WriteConfig(ApplyRun& run) {
    auto& p = run.pending;
    run.dnsFromDhcp =
        p.stored.GetDhcpDns() && (p.running.GetUseDhcp() || (p.ipv6Enabled && p.running.GetUseIpv6Dhcp()));
    p.stored.SetDhcpDns(run.dnsFromDhcp);
    p.running.SetDhcpDns(run.dnsFromDhcp);
    run.management.SetIpConfig(p.running);
    if (run.ipv4Changed)
        run.feedback.Redraw();
    if (run.management.GetDhcpBound() && p.running.GetUseDhcp())
        run.management.SetDhcpBound(true);
}

void Ipv4Gateway(ApplyRun& run) {
    const auto& p = run.pending;
    if (p.running.GetUseDhcp())
        return;
    if (!(run.routing.GetTesselDefaultGateway() == p.running.GetIpv4Gateway()) || run.ipv4Changed) {
        Log(LOG_INFO, "Setting default gateway to %s", p.running.GetIpv4Gateway().GetStringAddress().c_str());
        run.routing.SetTesselDefaultGateway(p.running.GetIpv4Gateway(), false);
    }
}

void Ipv6Gateway(ApplyRun& run) {
    const auto& p = run.pending;
    if (!p.ipv6Enabled || !p.ipv6GatewayChanged)
        return;
    Log(LOG_INFO, "Setting default ipv6 gateway to %s",
        p.running.GetIpv6Gateway().GetScopedStringAddress().c_str());
    run.routing.SetIpv6TesselDefaultGateway(p.running.GetIpv6Gateway());
}

void Renewal(ApplyRun& run) {
    if (!run.renewIpv4 && !run.renewIpv6)
        return;
    Log(LOG_INFO, "Renew DHCP lease on %s", run.management.GetName().c_str());
    if (run.renewIpv4)
        run.management.RenewDhcpLease();
    if (run.renewIpv6)
        run.management.RenewDhcpv6Lease();
}

void RestartInterface(ApplyRun& run) {
    if (!run.vlanChanged)
        return;
    Log(LOG_INFO, "Changed vlan, restarting management interface");
    run.management.Disable();
    run.management.Enable();
}

void Dns(ApplyRun& run) {
    const auto& p = run.pending;
    if (run.dnsFromDhcp)
        return;
    Log(LOG_INFO, "Setting hostname to %s", p.hostname.c_str());
    if (p.hostname.find('.') != std::string::npos)
        run.dns.SetFqdn(p.hostname, false, "");
    else
        run.dns.SetHostname(p.hostname, false);
    Log(LOG_INFO, "Setting nameservers to %s %s", DnsServerText(p.primaryDns).c_str(),
        DnsServerText(p.alternateDns).c_str());
    run.dns.RemoveNameServers();
    for (const DnsServer* server : {&p.primaryDns, &p.alternateDns}) {
        if (!*server)
            continue;
        // The unset address of either family means "no server".
        if (const auto* v4 = std::get_if<Ipv4Address>(&**server); v4 && v4->GetBinaryAddress() != 0)
            run.dns.AddNameServer(*v4);
        if (const auto* v6 = std::get_if<Ipv6Address>(&**server); v6 && v6->GetStringAddress() != "::")
            run.dns.AddNameServer(*v6);
    }
}

void Suffixes(ApplyRun& run) {
    Log(LOG_INFO, "Setting suffixes to %s", run.pending.suffixes.c_str());
    run.dns.SetSearchDomainsString(run.dns.GetDomain());
    for (const auto& suffix : SplitSuffixes(run.pending.suffixes))
        run.dns.AddSearchDomain(suffix);
    run.dns.SaveConfig();
}

void OfferRestart(ApplyRun& run) {
    if (run.pending.Ipv6Toggled())
        run.feedback.RestartHost();
}

struct Stage {
    const char* failurePrefix;
    void (*run)(ApplyRun&);
    bool onStandardSwitchOnly;
};

// The order matters: uplinks before the interface's addresses, the configuration before the gateways that
// depend on it, a lease renewal after the interface has its new uplinks, the resolver last.
constexpr Stage kStages[] = {
    {"Setting mac address of nicx failed: ", Adapters, true},
    {"Setting VlanID failed: ", Vlan, true},
    {"Setting ip configuration failed: ", Ipv4, false},
    {"Setting ipv6 configuration failed: ", Ipv6, false},
    {"Setting ip/ipv6 configuration failed: ", WriteConfig, false},
    {"Setting default gateway failed: ", Ipv4Gateway, false},
    {"Setting default ipv6 gateway failed: ", Ipv6Gateway, false},
    {"Operation on the management network interface failed. ", Renewal, false},
    {"Operation on the management network interface failed. ", RestartInterface, false},
    {"Setting DNS failed: ", Dns, false},
    {"Setting DNS failed: ", Suffixes, false},
    {"", OfferRestart, false},
};

// Refreshes the management service when the sequence ends, however it ends.
class RefreshGuard {
public:
    explicit RefreshGuard(ApplyFeedback& feedback) : feedback_(feedback) {}
    ~RefreshGuard() { feedback_.RefreshManagementService(); }
    RefreshGuard(const RefreshGuard&) = delete;
    RefreshGuard& operator=(const RefreshGuard&) = delete;

private:
    ApplyFeedback& feedback_;
};

} // namespace

void ApplyChanges(PendingNetworkConfig& pending, TesNic& management, TesCtl::Network::DnsConfigImpl& dns,
                  TesCtl::Network::RoutingInfoImpl& routing, ApplyFeedback& feedback) {
    RefreshGuard refresh(feedback);
    ApplyRun run{pending, management, dns, routing, feedback, {}, {}};
    for (const Stage& stage : kStages) {
        if (stage.onStandardSwitchOnly && pending.onDistributedSwitch)
            continue;
        try {
            // A stage's changes are one batch: the simulated host reads its state once for all of them.
            Platform::ChangeBatch batch;
            stage.run(run);
        } catch (const HostCtlException& e) {
            std::string message = stage.failurePrefix + DescribeHostCtlError(e);
            Log(LOG_ERR, "%s", message.c_str());
            feedback.ShowError(message);
        }
    }
}

} // namespace Tarn
