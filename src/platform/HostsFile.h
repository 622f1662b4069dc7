// The host's hosts file (/etc/hosts under the host root): removal of a host name from its entries.
#pragma once

#include <string>

namespace TesCtl::Network {

class HostsFile {
public:
    // Platform::HostPath("/etc/hosts") by default.
    HostsFile();
    explicit HostsFile(std::string path) : path_(std::move(path)) {}

    // Takes `name` (case-insensitive) off every entry and drops entries left without a name; comments and
    // other lines stay as they are. Returns whether anything was removed. Throws HostCtlException when the
    // file cannot be read or written.
    bool RemoveEntryByHostName(const std::string& name);

    const std::string& GetPath() const { return path_; }

private:
    std::string path_;
};

} // namespace TesCtl::Network
