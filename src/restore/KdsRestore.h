// Restore kDS: a new host local port ("hlp-N") on the management interface's distributed switch, with the
// VLAN and uplinks the operator chose and everything else cloned from the current port, and the management
// interface moved onto it. See docs/restore.md.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarn {

// Where the management interface sits now.
struct KdsPortContext {
    std::string tesnic;
    std::string dswitch;
    std::string port;
    bool thirdParty = false;              // the switch is not the platform's own: it cannot be repaired here
    uint16_t vlan = 0;                    // of the current port
    std::vector<std::string> uplinks;     // of the switch on this host
    std::vector<std::string> portUplinks; // of the current port's teaming
    std::vector<std::string> portKeys;    // every port of the switch
};

// Nothing when the management interface is not on a distributed switch port or cannot be read (logged).
std::optional<KdsPortContext> ReadKdsPortContext();

// "hlp-1", or the next number not yet a key of the switch.
std::string NextHostLocalPortKey(const std::vector<std::string>& existingKeys);

// Creates the port and moves the management interface onto it: the new port's key, empty when any step
// failed (logged).
std::string RestoreKdsPort(const KdsPortContext& context, uint16_t vlan,
                           const std::vector<std::string>& uplinks);

} // namespace Tarn
