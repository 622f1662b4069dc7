// Restarting the management interface: down, up (which renews a DHCP lease), then the addresses it holds.
#pragma once

#include "network/ProgressSink.h"
#include "platform/Network.h"

namespace Tarn {

class StringFactory;

// Logs and reports the restart, then stops and starts `management`, showing each step and the addresses in
// use afterwards. False when the interface could not be stopped or started (the caller reports it).
bool RestartManagementNetwork(HostCtl::Network::TesNic& management, const StringFactory& texts,
                              ProgressSink& progress);

} // namespace Tarn
