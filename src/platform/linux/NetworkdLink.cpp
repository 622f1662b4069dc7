// Parsing networkd's link description: addresses come as byte arrays, as networkd writes them.
#include "platform/linux/NetworkdLink.h"

#include <arpa/inet.h>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace Platform::Linux {
namespace {

using nlohmann::json;

// [10,0,0,1] or sixteen bytes as text; empty when the value is no address of `family`.
std::string AddressText(const json& bytes, int family) {
    const size_t size = family == AF_INET ? 4 : 16;
    if (!bytes.is_array() || bytes.size() != size)
        return {};
    unsigned char raw[16]{};
    for (size_t i = 0; i < size; ++i) {
        if (!bytes[i].is_number_unsigned() || bytes[i].get<unsigned>() > 255)
            return {};
        raw[i] = static_cast<unsigned char>(bytes[i].get<unsigned>());
    }
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(family, raw, text, sizeof text) ? text : "";
}

} // namespace

NetworkdLink ParseNetworkdLink(std::string_view text) {
    json doc = json::parse(text, nullptr, false);
    if (!doc.is_object() || !doc.contains("Name"))
        throw std::runtime_error("not a networkd link description");
    NetworkdLink link;
    std::string setup = doc.value("SetupState", "");
    link.managed = !setup.empty() && setup != "unmanaged";
    link.networkFile = doc.value("NetworkFile", "");
    if (!doc.contains("Addresses") || !doc["Addresses"].is_array())
        return link;
    for (const auto& entry : doc["Addresses"]) {
        if (!entry.is_object())
            continue;
        NetworkdAddress address;
        address.family = entry.value("Family", 0);
        if (address.family != AF_INET && address.family != AF_INET6)
            continue;
        address.address = AddressText(entry.value("Address", json()), address.family);
        if (address.address.empty())
            continue;
        address.prefixLength = entry.value("PrefixLength", 0);
        address.source = entry.value("ConfigSource", "");
        address.provider = AddressText(entry.value("ConfigProvider", json()), address.family);
        link.addresses.push_back(std::move(address));
    }
    return link;
}

const NetworkdAddress* Dhcp4Address(const NetworkdLink& link) {
    for (const auto& address : link.addresses)
        if (address.family == AF_INET && address.source == "DHCPv4")
            return &address;
    return nullptr;
}

} // namespace Platform::Linux
