// The address lines that the management network restart shows once the interface is up again.
#pragma once

#include "platform/IpConfig.h"

#include <string>

namespace Tarn {

// For each static, not link-local IPv6 address: "\n   " + `label` + "address/prefix"; at most two, then
// "   ...\n" when more remain. Empty when the configuration has no such address.
std::string RestartIpv6Lines(const HostCtl::Network::IpConfig& config, const std::string& label);

} // namespace Tarn
