// A name server of the management network as the window keeps it: an IPv4 or an IPv6 address, or none.
#pragma once

#include "platform/NetworkTypes.h"

#include <optional>
#include <string>
#include <variant>

namespace Tarn {

using DnsServer = std::optional<std::variant<HostCtl::Network::Ipv4Address, HostCtl::Network::Ipv6Address>>;

// The address as typed and shown ("" for none); IPv6 with its zone.
std::string DnsServerText(const DnsServer& server);

// An IPv6 text becomes an IPv6 server, any other valid text an IPv4 one; empty or invalid text gives none.
DnsServer DnsServerFromText(const std::string& text);

// The address as the resolver takes it; null for none.
const HostCtl::Network::IpAddress* DnsServerAddress(const DnsServer& server);

} // namespace Tarn
