// What the management network dialogs decide on Enter, apart from drawing: which row is faulty and with
// which message, and the value a valid input becomes. Also the adapter list's selection order and row text.
#pragma once

#include "network/PendingNetworkConfig.h"
#include "platform/IpConfig.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarn {

// A refused input: the row to move the selection to and the message dialog's catalogue texts.
struct FieldError {
    int row;
    unsigned title;
    unsigned text;
    bool operator==(const FieldError&) const = default;
};

enum class Ipv4Mode { Disabled, Dynamic, Static };

// IPv4 dialog rows 3, 4 and 5 hold the address, the netmask and the gateway. On success the mode and,
// when static, the three addresses are set in `config`; outside static mode the gateway becomes unset.
std::optional<FieldError> ValidateIpv4(Ipv4Mode mode, const std::string& address, const std::string& netmask,
                                       const std::string& gateway, HostCtl::Network::IpConfig& config);

enum class Ipv6Mode { Disabled, RouterAdvertised, Dhcpv6, Static };

struct Ipv6Input {
    Ipv6Mode mode = Ipv6Mode::Static;
    std::array<std::string, 3> statics; // rows 4 to 6
    std::string gateway;                // row 7
};

// The choice that shows a configuration: disabled, DHCPv6, router advertisement, else static.
Ipv6Mode Ipv6ModeOf(bool enabled, const HostCtl::Network::IpConfig& stored);

// `initial` holds what the dialog showed (static networks and gateway): outside static mode they are kept;
// in static mode the rows are validated and become the result. A link-local gateway is refused here, so
// that the window never holds one.
std::optional<FieldError> ValidateIpv6(const Ipv6Input& input, const Ipv6Result& initial, Ipv6Result& result);

// DNS dialog rows 2 and 3 hold the servers; an empty row is no server.
std::optional<FieldError> ValidateDns(bool automatic, const std::string& primary,
                                      const std::string& alternate, const std::string& hostname,
                                      DnsResult& result);

enum class VlanCheck { Invalid, Valid, NeedsWarning };

// Empty is 0 (no VLAN); 1 to 4094 are taken; 4095 is taken after a warning; anything else is refused.
VlanCheck CheckVlan(const std::string& text, uint16_t& id);

// Selecting appends, deselecting removes and closes the gap: the order of selection is the uplink order.
void ToggleAdapter(std::vector<std::string>& selected, const std::string& name);

// One adapter row: name column, "label (MAC)" column with the label cut to "(...)" to fit, status.
std::string AdapterRowText(const std::string& name, const std::string& label, const std::string& mac,
                           const std::string& status);

} // namespace Tarn
