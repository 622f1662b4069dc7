// The texts of the welcome screen as pure functions of host facts: management addresses, warning, hardware,
// CPU and memory lines. WelcomeWindow gathers the facts and draws; everything here is testable without
// curses.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Tarn {

class StringFactory;

struct WelcomeIpv6Address {
    std::string address; // colon text
    int type = 0;        // origin: 0 static, 7 autoconfigured, 9 DHCP
};

struct WelcomeNetworkFacts {
    std::string hostname;
    bool dhcp = false;            // from the stored configuration
    bool ipv4Disabled = false;    // from the stored configuration
    std::string ipv4Address;      // running, dotted
    bool dhcpServerKnown = false; // the DHCP server address is not 0.0.0.0
    bool ipv6Enabled = false;
    std::vector<WelcomeIpv6Address> ipv6; // running, in the host's order
};

// Shown in the management box when the host has no physical adapter, and raised once as a system alert.
inline constexpr const char* kNoAdapterMessage = "No compatible network adapter found. Please consult the "
                                                 "product's Hardware Compatibility Guide (HCG) for "
                                                 "a list of supported adapters.";
inline constexpr const char* kNoAdapterAlert = "No compatible network adapter found.";

// The key hints: F2 on the left, F12 on the right.
std::string WelcomeFooter(const StringFactory& strings);

// The management box text: heading, host-name line, IPv4 line and its origin label, IPv6 lines.
std::string ManagementText(const StringFactory& strings, const WelcomeNetworkFacts& facts);

// The IPv6 part: at most four addresses (all five when there are exactly five), sorted, "..." when some
// remain.
std::string Ipv6Lines(const StringFactory& strings, const std::vector<WelcomeIpv6Address>& addresses);

// Catalogue id of the warning box text, or 0 when it stays empty. Audit mode wins over the DHCP warning.
unsigned WarningTextId(bool dhcp, bool dhcpServerKnown, bool auditMode);

// Vendor and product, each with white space collapsed; the product alone when it starts with the vendor.
std::string HardwareLine(const std::string& vendor, const std::string& product);

// "2 x <model>" for two or more packages, else the model; then a newline and the memory figure.
std::string CpuAndMemoryText(unsigned packages, const std::string& model, uint64_t totalPages,
                             uint64_t pageSize);

// "31.9 GiB Memory": one decimal at most, whole values without a decimal point.
std::string MemoryFigure(uint64_t totalBytes);

} // namespace Tarn
