// Hosts-file backup around a name look-up.
#include "network/HostnameCheck.h"

#include "core/Log.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/HostsFile.h"
#include "platform/Resolver.h"

#include <filesystem>

namespace Tarn {
namespace {

namespace fs = std::filesystem;

fs::path HostsPath() {
    return Platform::HostPath("/etc/hosts");
}
fs::path BackupPath() {
    return Platform::HostPath("/etc/hosts.backup");
}

} // namespace

bool BackupHostsFile() {
    std::error_code error;
    fs::copy_file(HostsPath(), BackupPath(), fs::copy_options::overwrite_existing, error);
    if (error) {
        Log(LOG_ERR, "failed to backup /etc/hosts: %s", error.message().c_str());
        return false;
    }
    return true;
}

bool RestoreHostsFile() {
    // A rename keeps the file whole for readers at every moment and leaves no backup behind.
    std::error_code error;
    fs::rename(BackupPath(), HostsPath(), error);
    if (error) {
        Log(LOG_ERR, "failed to restore /etc/hosts: %s", error.message().c_str());
        return false;
    }
    return true;
}

bool ResolveThroughNameServers(const std::string& hostname) {
    // Without a backup the file must not be edited: the host's own entry would be lost for good.
    const bool backedUp = BackupHostsFile();
    if (backedUp) {
        try {
            TesCtl::Network::HostsFile().RemoveEntryByHostName(hostname);
        } catch (const HostCtl::Lib::HostCtlException& e) {
            Log(LOG_ERR, "Removing %s from the hosts file failed: %s", hostname.c_str(), e.what());
        }
    }
    bool resolved = false;
    try {
        resolved = TesCtl::Network::ResolveHostName(hostname);
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Resolving %s failed: %s", hostname.c_str(), e.what());
    }
    if (backedUp)
        RestoreHostsFile();
    return resolved;
}

} // namespace Tarn
