// The management network restart sequence.
#include "network/RestartManagementNetwork.h"

#include "core/Log.h"
#include "core/Report.h"
#include "hostops/TryHostCtl.h"
#include "network/RestartText.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {

bool RestartManagementNetwork(HostCtl::Network::TesNic& nic, const StringFactory& texts,
                              ProgressSink& progress) {
    // The stored configuration says which IPv6 addresses the interface is meant to carry again.
    HostCtl::Network::IpConfig stored;
    bool haveStored = TryHostCtl("Reading the management configuration", [&] {
        if (nic.IsStale())
            nic.Refresh();
        stored = nic.GetConfiguredIpConfig();
    });
    const std::string name = nic.GetName();
    Log(LOG_INFO, "Restarting %s", name.c_str());
    ReportEvent(kEventNetworkRestart, name.c_str());

    if (!progress.Step(texts.GetString(TextId::StoppingManagementNetwork), [&] {
            return TryHostCtl("Disabling the management interface", [&] { nic.Disable(); });
        }))
        return false;
    if (!progress.Step(texts.GetString(TextId::StartingManagementNetwork), [&] {
            return TryHostCtl("Enabling the management interface", [&] { nic.Enable(); });
        }))
        return false;

    std::string lines = haveStored ? RestartIpv6Lines(stored, texts.GetString(TextId::IpAddressIs)) : "";
    if (!lines.empty() && lines.back() != '\n')
        lines += '\n';
    // With DHCP this is the address leased just now; without a lease the interface reports 0.0.0.0.
    TryHostCtl("Reading the management address", [&] {
        nic.Refresh();
        lines += texts.GetString(TextId::IpAddressIs) +
                 nic.GetIpConfig().GetIpv4Address().GetStringAddress() + "\n";
    });
    progress.Append(lines + "\n" + texts.GetString(TextId::Done));
    return true;
}

} // namespace Tarn
