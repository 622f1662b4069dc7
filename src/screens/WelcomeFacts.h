// The host facts the welcome screen shows, read through the host-control layer into plain values. Every
// host-control failure is logged and becomes the value the screen shows when the fact is missing, so a broken
// host never keeps the welcome screen from drawing.
#pragma once

#include "screens/WelcomeText.h"

#include <cstdint>
#include <string>

namespace TesCtl::Network {
class DnsConfigImpl;
}
namespace TesCtl::System {
class SystemInfoImpl;
}

namespace Tarn {

struct WelcomeFacts {
    WelcomeNetworkFacts network;
    bool auditMode = false;
    // False only when the host reports no physical adapter; an unreadable list counts as adapters present,
    // so that a read failure never raises the no-adapter alert.
    bool hasAdapters = true;
    std::string vendor;
    std::string product;
    unsigned cpuPackages = 0;
    std::string cpuModel;
    uint64_t totalPages = 0;
    uint64_t pageSize = 0;
};

// The custom welcome text; empty when none is set or it cannot be read.
std::string ReadWelcomeMessage(TesCtl::System::SystemInfoImpl& system);

// Everything the two-half layout shows. `dns` is re-read, so the host name is current.
WelcomeFacts ReadWelcomeFacts(TesCtl::Network::DnsConfigImpl& dns);

// Raises the host-wide alert; a failure is logged only.
void RaiseSystemAlert(TesCtl::System::SystemInfoImpl& system, const std::string& text);

} // namespace Tarn
