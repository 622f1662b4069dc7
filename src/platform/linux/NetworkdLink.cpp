// Parsing networkd's link description: addresses come as byte arrays, as networkd writes them.
#include "platform/linux/NetworkdLink.h"

#include <arpa/inet.h>
#include <cstdint>
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
        // Compared as 64 bits: a narrower read would wrap 4294967297 to 1 before the check.
        if (!bytes[i].is_number_unsigned() || bytes[i].get<std::uint64_t>() > 255)
            return {};
        raw[i] = static_cast<unsigned char>(bytes[i].get<std::uint64_t>());
    }
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(family, raw, text, sizeof text) ? text : "";
}

// A member of the wrong type counts as absent: the library's own conversions would throw a type error, or
// for a float such as 1e+28 read as an int, be undefined.
std::string TextField(const json& object, const char* key) {
    auto it = object.find(key);
    return it != object.end() && it->is_string() ? it->get<std::string>() : std::string();
}

int SmallNumberField(const json& object, const char* key) {
    auto it = object.find(key);
    if (it == object.end() || !it->is_number_integer())
        return 0;
    const auto value = it->get<std::int64_t>();
    return value >= 0 && value <= 255 ? static_cast<int>(value) : 0;
}

} // namespace

NetworkdLink ParseNetworkdLink(std::string_view text) {
    json doc = json::parse(text, nullptr, false);
    if (!doc.is_object() || !doc.contains("Name"))
        throw std::runtime_error("not a networkd link description");
    NetworkdLink link;
    std::string setup = TextField(doc, "SetupState");
    link.managed = !setup.empty() && setup != "unmanaged";
    link.networkFile = TextField(doc, "NetworkFile");
    if (!doc.contains("Addresses") || !doc["Addresses"].is_array())
        return link;
    for (const auto& entry : doc["Addresses"]) {
        if (!entry.is_object())
            continue;
        NetworkdAddress address;
        address.family = SmallNumberField(entry, "Family");
        if (address.family != AF_INET && address.family != AF_INET6)
            continue;
        address.address = AddressText(entry.value("Address", json()), address.family);
        if (address.address.empty())
            continue;
        address.prefixLength = SmallNumberField(entry, "PrefixLength");
        address.source = TextField(entry, "ConfigSource");
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
