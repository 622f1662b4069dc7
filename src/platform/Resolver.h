// Host name resolution of the host's default network stack, as a program on the host would see it: the
// hosts file first, then the configured name servers. Safe to call from any thread.
#pragma once

#include <string>

namespace TesCtl::Network {

// True when `name` resolves to an address. Throws HostCtl::Lib::HostCtlException when the host cannot be
// read at all.
bool ResolveHostName(const std::string& name);

} // namespace TesCtl::Network
