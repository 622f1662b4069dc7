// The opening reads of the management network window.
#include "network/OpenManagementNetwork.h"

#include "core/Log.h"
#include "network/NetworkAccess.h"
#include "platform/NetworkInfo.h"

namespace Tarn {

using HostCtl::Lib::HostCtlException;

OpenOutcome OpenManagementNetwork(PendingNetworkConfig& pending,
                                  std::unique_ptr<HostCtl::Network::TesNic>& management,
                                  TesCtl::Network::DnsConfigImpl& dns,
                                  TesCtl::Network::RoutingInfoImpl& routing) {
    pending = PendingNetworkConfig();
    try {
        pending.ipv6Enabled = pending.ipv6EnabledAtStart =
            TesCtl::Network::NetworkInfoImpl().IsTesIpv6Enabled();
        management = FindManagementInterface();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting the management interface failed: %s", DescribeHostCtlError(e).c_str());
        management.reset();
    }
    if (!management) {
        Log(LOG_ERR, "Could not get a suitable management interface");
        return OpenOutcome::NoInterface;
    }
    try {
        if (management->IsStale())
            management->Refresh();
        pending.stored = management->GetConfiguredIpConfig();
        pending.running = management->GetIpConfig();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting ip configuration failed: %s", DescribeHostCtlError(e).c_str());
        return OpenOutcome::ReadFailed;
    }
    pending.onDistributedSwitch = IsManagementOnDistributedSwitch();
    if (!pending.onDistributedSwitch && !(GetManagementUplinks(*management, pending.adapters) &&
                                          GetMaxActiveUplinks(*management, pending.activeUplinks) &&
                                          GetManagementVlanId(*management, pending.vlanId)))
        return OpenOutcome::ReadFailed;

    // What cannot be read from here on shows as unset.
    try {
        pending.running.SetIpv4Gateway(routing.GetTesselDefaultGateway());
        pending.hostname = dns.GetHostname();
        pending.running.SetIpv6Gateway(routing.GetIpv6TesselDefaultGateway());
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting gateways or hostname failed: %s", DescribeHostCtlError(e).c_str());
    }
    try {
        if (dns.IsStale())
            dns.Refresh();
        pending.searchDomains = dns.GetSearchDomains();
        ChooseDnsServers(dns.GetNameServers(), dns.GetIpv6NameServers(false), pending.primaryDns,
                         pending.alternateDns);
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting DNS configuration failed: %s", DescribeHostCtlError(e).c_str());
    }
    pending.suffixes = JoinSuffixes(pending.searchDomains);
    return OpenOutcome::Ready;
}

} // namespace Tarn
