// The management network restart sequence.
#include "network/RestartManagementNetwork.h"

#include "core/Log.h"
#include "core/Report.h"
#include "network/RestartText.h"
#include "platform/HostCtlException.h"
#include "ui/StringFactory.h"

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;

constexpr unsigned kStopping = 133, kStarting = 134, kIpAddressIs = 135, kDone = 121;

bool Attempt(const char* action, const std::function<void()>& change) {
    try {
        change();
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "%s failed: %s", action, e.what());
        return false;
    }
}

} // namespace

bool RestartManagementNetwork(HostCtl::Network::TesNic& nic, const StringFactory& texts,
                              ProgressSink& progress) {
    // The stored configuration says which IPv6 addresses the interface is meant to carry again.
    HostCtl::Network::IpConfig stored;
    bool haveStored = Attempt("Reading the management configuration", [&] {
        if (nic.IsStale())
            nic.Refresh();
        stored = nic.GetConfiguredIpConfig();
    });
    const std::string name = nic.GetName();
    Log(LOG_INFO, "Restarting %s", name.c_str());
    ReportEvent(kEventNetworkRestart, name.c_str());

    if (!progress.Step(texts.GetString(kStopping),
                       [&] { return Attempt("Disabling the management interface", [&] { nic.Disable(); }); }))
        return false;
    if (!progress.Step(texts.GetString(kStarting),
                       [&] { return Attempt("Enabling the management interface", [&] { nic.Enable(); }); }))
        return false;

    std::string lines = haveStored ? RestartIpv6Lines(stored, texts.GetString(kIpAddressIs)) : "";
    if (!lines.empty() && lines.back() != '\n')
        lines += '\n';
    // With DHCP this is the address leased just now; without a lease the interface reports 0.0.0.0.
    Attempt("Reading the management address", [&] {
        nic.Refresh();
        lines += texts.GetString(kIpAddressIs) + nic.GetIpConfig().GetIpv4Address().GetStringAddress() + "\n";
    });
    progress.Append(lines + "\n" + texts.GetString(kDone));
    return true;
}

} // namespace Tarn
