// What the management network test checks: its default targets, the validation of the edited rows, the
// ping command and the line shown for each step. Plain values, no screen.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

inline constexpr size_t kTestAddressRows = 3;

// The host's candidates for the test, in the order they are offered.
struct TestCandidates {
    std::string ipv4Gateway;
    std::vector<std::string> ipv4Servers;
    bool ipv6Enabled = false;
    std::string ipv6Gateway;
    std::vector<std::string> ipv6Servers;
    std::string hostname;
    std::string domain;
};

struct TestTargets {
    std::vector<std::string> addresses; // kTestAddressRows rows, empty when unused
    std::string hostname;
};

// The gateway, the IPv4 name servers, then (IPv6 on) the IPv6 gateway and name servers, into the first
// free rows; empty, "0.0.0.0" and "::" are never offered. The hostname is the name joined with the domain.
TestTargets DefaultTestTargets(const TestCandidates& candidates);

// The candidates read from the host; whatever cannot be read stays empty (the failure is logged).
TestCandidates ReadTestCandidates();

// Index of the first non-empty row that is neither an IPv4 nor an IPv6 address; -1 when all are good.
int FirstInvalidTestAddress(const std::vector<std::string>& addresses);

// "/bin/tesping -c 3 -I <interface> <address>" (without "-I" when no interface is named).
std::string PingCommandLine(const std::string& address, const std::string& interfaceName);

// "Pinging address #2 (fe80::1%tes0)." : a link-local IPv6 target without a zone is shown with the
// interface it is sent through.
std::string PingStepText(const std::string& label, int row, const std::string& address,
                         const std::string& interfaceName);

} // namespace Tarn
