// One read of the real host's network, resolver and routes, as the Linux backends hand them out.
#pragma once

#include "platform/NetworkBackend.h"
#include "platform/linux/NetworkModel.h"

#include <string>

namespace Platform::Linux {

// Refuses under the test guard outside the sandbox, then reads tarn's configuration, the kernel and the
// configuring programs' records, and logs each problem once. Throws HostCtlException.
MappedNetwork ReadNetwork();

// Host name and domain from the kernel's node name, servers and search list from the resolver's file
// (systemd-resolved's own list when /etc/resolv.conf names only its local stub).
DnsRecord ReadDns();

// Logs `text` at warning level the first time it is seen in this process.
void LogOnce(const std::string& text);

} // namespace Platform::Linux
