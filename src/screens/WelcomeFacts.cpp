// Reading the welcome screen's host facts; each group is read on its own so that one failing area leaves the
// others on screen.
#include "screens/WelcomeFacts.h"

#include "core/Log.h"
#include "network/NetworkAccess.h"
#include "platform/DnsConfig.h"
#include "platform/HardwareInfo.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkInfo.h"
#include "platform/SysInfo.h"
#include "platform/SystemInfo.h"

#include <array>

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;

// Runs one read; a host-control failure is logged as "<what> failed: <message>" and leaves the defaults.
template <class Read> void Guarded(const char* what, Read&& read) {
    try {
        read();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "%s failed: %s", what, e.what());
    }
}

void ReadManagement(WelcomeNetworkFacts& net) {
    auto management = FindManagementInterface();
    // No management interface: drawn as if DHCP were off and IPv4 enabled (0.0.0.0, STATIC).
    net.ipv4Address = "0.0.0.0";
    if (!management)
        return;
    const auto configured = management->GetConfiguredIpConfig();
    const auto running = management->GetIpConfig();
    net.dhcp = configured.GetUseDhcp();
    net.ipv4Disabled = configured.GetIpv4UseNone();
    net.ipv4Address = running.GetIpv4Address().GetStringAddress();
    for (const auto& network : running.GetIpv6Network())
        net.ipv6.push_back({network.GetAddress().GetStringAddress(), network.GetIpv6AddressType()});
    net.dhcpServerKnown = management->GetDhcpServer().GetBinaryAddress() != 0;
}

} // namespace

std::string ReadWelcomeMessage(TesCtl::System::SystemInfoImpl& system) {
    std::string message;
    Guarded("Getting welcome message", [&] { message = system.GetWelcomeMessage(); });
    return message;
}

void RaiseSystemAlert(TesCtl::System::SystemInfoImpl& system, const std::string& text) {
    Guarded("Setting system alert", [&] { system.SetSystemAlert(text); });
}

WelcomeFacts ReadWelcomeFacts(TesCtl::Network::DnsConfigImpl& dns) {
    WelcomeFacts facts;
    WelcomeNetworkFacts& net = facts.network;
    net.ipv4Address = "0.0.0.0";

    TesCtl::Network::NetworkInfoImpl info;
    Guarded("Getting IPv6 state", [&] { net.ipv6Enabled = info.IsTesIpv6Enabled(); });
    Guarded("Getting management interface", [&] {
        WelcomeNetworkFacts read;
        read.ipv6Enabled = net.ipv6Enabled;
        ReadManagement(read);
        net = std::move(read); // all or nothing: no half-read interface on screen
    });
    Guarded("Getting hostname", [&] {
        dns.Refresh();
        net.hostname = dns.GetHostname();
    });
    Guarded("Getting physical nics", [&] { facts.hasAdapters = !info.GetPnics().empty(); });

    std::array<uint8_t, 4> bootOption{};
    facts.auditMode = Platform::ReadBootOption(bootOption) && bootOption[0] == 1;

    Guarded("Getting hardware information", [&] {
        TesCtl::Hardware::HardwareInfoImpl hardware;
        facts.vendor = hardware.GetVendorName();
        facts.product = hardware.GetProductName();
    });
    Guarded("Getting CPU information", [&] {
        TesCtl::Hardware::CpuInfoImpl cpu;
        const int packages = cpu.GetNumCpuPackages();
        facts.cpuPackages = packages > 0 ? static_cast<unsigned>(packages) : 0;
        facts.cpuModel = cpu.GetModelName();
    });
    Guarded("Getting memory information", [&] {
        TesCtl::Hardware::MemoryInfoImpl memory;
        facts.totalPages = memory.GetTotalPages();
        facts.pageSize = memory.GetPageSize();
    });
    return facts;
}

} // namespace Tarn
