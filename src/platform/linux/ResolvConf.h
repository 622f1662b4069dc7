// The resolver's configuration file (/etc/resolv.conf, or systemd-resolved's list of the servers it uses).
#pragma once

#include "platform/NetworkTypes.h"

#include <string>
#include <string_view>
#include <vector>

namespace Platform::Linux {

struct ResolvConf {
    std::vector<HostCtl::Network::Ipv4Address> servers;
    std::vector<HostCtl::Network::Ipv6Address> ipv6Servers;
    std::vector<std::string> search;
    std::string domain; // the "domain" line, when the last of "domain" and "search" was one
};

// Reads "nameserver", "search" and "domain" as the C library does: a later "search" or "domain" replaces
// an earlier one; lines starting with '#' or ';' are comments; a server that is no address is skipped.
ResolvConf ParseResolvConf(std::string_view text);

// True when every server is a local stub (127.0.0.53 and the like): the real servers are elsewhere.
bool OnlyLocalStub(const ResolvConf& conf);

} // namespace Platform::Linux
