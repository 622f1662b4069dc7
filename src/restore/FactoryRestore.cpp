// Factory network restore sequence.
#include "restore/FactoryRestore.h"

#include "core/Log.h"
#include "core/Report.h"
#include "hostops/CommandRunner.h"
#include "hostops/KelpCmd.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/NetworkInfo.h"
#include "platform/ResourceInfo.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

bool HasRunningVms() {
    try {
        return TesCtl::Resource::ResourceInfoImpl().HasRunningVirtualMachines();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        // Unknown counts as none: the restore must stay possible on a host whose VM list cannot be read.
        Log(LOG_ERR, "Checking for running VMs failed: %s", e.what());
        return false;
    }
}

// Graceful: the guests are asked to shut down, never terminated.
bool HaltGuests() {
    const std::string path = Platform::HostPath("/sbin/haltGuests");
    const char* const argv[] = {"haltGuests", nullptr};
    return RunProcess(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0) == 0;
}

} // namespace

bool RunFactoryRestore(const StringFactory& texts, ProgressSink& progress,
                       const std::function<bool()>& confirmStopVms) {
    bool halted = true;
    if (HasRunningVms()) {
        if (!confirmStopVms())
            return false;
        halted = progress.Step(texts.GetString(TextId::PoweringOffVms), HaltGuests);
    }
    TesCtl::Network::NetworkInfoImpl network;
    try {
        network.DisableNetDumper();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Disabling the network dumper failed: %s", e.what());
        Log(LOG_ERR, "Error auto-configuring network");
        progress.Append(std::string(texts.GetString(TextId::Failed)) + "\n");
        return true;
    }
    if (!halted) {
        // Machines that are still running would lose their network: leave it as it is.
        Log(LOG_ERR, "Error powering off VMs");
        return true;
    }
    progress.Step(texts.GetString(TextId::AutoConfiguringNetwork), [&] {
        try {
            Log(LOG_INFO, "Clearing Network Config");
            network.ClearNetworkConfig();
            Log(LOG_INFO, "Auto-Configuring Network");
            network.AutoConfigNetwork();
            return true;
        } catch (const HostCtl::Lib::HostCtlException& e) {
            Log(LOG_ERR, "Error auto-configuring network");
            Log(LOG_ERR, "Auto-configuring network failed: %s", e.what());
            return false;
        }
    });
    // Cleared, and rebuilt or not: the management service must read the network as it now is.
    RefreshManagementService();
    return true;
}

void ReportFactoryRestore() {
    Log(LOG_INFO, "Restoring factory network settings");
    ReportEvent(kEventFactoryNetworkRestored);
}

} // namespace Tarn
