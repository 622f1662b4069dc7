// Tesnic migration to a standard switch port group.
#include "restore/MigrateTesnic.h"

#include "core/Log.h"
#include "hostops/BrynOpsAgent.h"
#include "hostops/KelpCmd.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkInfo.h"
#include "platform/TesNicImpl.h"

namespace Tarn {

MigrationChoices ReadMigrationChoices() {
    MigrationChoices choices;
    try {
        for (auto& nic : TesCtl::Network::TesselNicInfoImpl().GetTesselNics())
            choices.tesnics.push_back(nic->GetName());
        choices.portGroups = TesCtl::Network::NetworkInfoImpl().GetAllPortGroups();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Gathering tesnics and port groups failed: %s", e.what());
    }
    return choices;
}

std::string MigrateTesnic(const std::string& tesnic, const std::string& portGroup) {
    Log(LOG_INFO, "Migrating %s to port group %s", tesnic.c_str(), portGroup.c_str());
    // The agent owns the interface's port while it runs: it must not move it back under our feet.
    bool wasStopped = false;
    BrynOpsAgentStop(wasStopped);
    std::string failure;
    try {
        TesCtl::Network::TesNicImpl(tesnic).SetConnectionPoint(HostCtl::Network::PortGroup(portGroup));
        if (!BrynMigrateSwitch(portGroup, tesnic))
            failure = "The network virtualisation agent did not accept the migration.";
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Migrating %s failed: %s", tesnic.c_str(), e.what());
        failure = std::string("Migrating ") + tesnic + " failed: " + e.what();
    }
    BrynOpsAgentStart(wasStopped);
    if (failure.empty()) {
        Log(LOG_INFO, "Migrated %s to port group %s", tesnic.c_str(), portGroup.c_str());
        RefreshManagementService();
    }
    return failure;
}

} // namespace Tarn
