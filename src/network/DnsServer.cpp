// Conversions of a management name server between its text and its address.
#include "network/DnsServer.h"

namespace Tarn {

using namespace HostCtl::Network;

std::string DnsServerText(const DnsServer& server) {
    if (!server)
        return "";
    if (const auto* v6 = std::get_if<Ipv6Address>(&*server))
        return v6->GetScopedStringAddress();
    return std::get<Ipv4Address>(*server).GetStringAddress();
}

DnsServer DnsServerFromText(const std::string& text) {
    if (Ipv6Address::IsValidAddress(text))
        return Ipv6Address(text);
    if (Ipv4Address::IsValidAddress(text))
        return Ipv4Address(text);
    return std::nullopt;
}

const IpAddress* DnsServerAddress(const DnsServer& server) {
    if (!server)
        return nullptr;
    return std::visit([](const auto& address) -> const IpAddress* { return &address; }, *server);
}

} // namespace Tarn
