// Parsing, validation and formatting of the network address value types.
#include "platform/NetworkTypes.h"

#include "platform/HostCtlException.h"

#include <arpa/inet.h>
#include <cstdio>
#include <cstring>

namespace HostCtl::Network {
namespace {

// inet_pton wants a NUL-terminated string; a view may hold an embedded NUL, which must not pass.
bool ToCString(std::string_view text, std::string& out) {
    if (text.find('\0') != std::string_view::npos)
        return false;
    out.assign(text);
    return true;
}

bool ParseIpv4(std::string_view text, uint32_t& value) {
    std::string s;
    in_addr addr{};
    if (!ToCString(text, s) || inet_pton(AF_INET, s.c_str(), &addr) != 1)
        return false;
    value = ntohl(addr.s_addr);
    return true;
}

bool ValidZone(std::string_view zone) {
    if (zone.empty() || zone.size() > 64)
        return false;
    for (char c : zone) {
        bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
                  c == '-' || c == '_';
        if (!ok)
            return false;
    }
    return true;
}

bool ParseIpv6(std::string_view text, Ipv6Address::Bytes& bytes, std::string& zone) {
    std::string_view address = text;
    zone.clear();
    if (auto percent = text.find('%'); percent != std::string_view::npos) {
        if (!ValidZone(text.substr(percent + 1)))
            return false;
        zone.assign(text.substr(percent + 1));
        address = text.substr(0, percent);
    }
    std::string s;
    in6_addr addr{};
    if (!ToCString(address, s) || inet_pton(AF_INET6, s.c_str(), &addr) != 1)
        return false;
    std::memcpy(bytes.data(), addr.s6_addr, bytes.size());
    return true;
}

// Decimal 0-128, no sign, no leading zero.
bool ParsePrefix(std::string_view text, int& prefix) {
    if (text.empty() || text.size() > 3 || (text.size() > 1 && text[0] == '0'))
        return false;
    int value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + (c - '0');
    }
    if (value > 128)
        return false;
    prefix = value;
    return true;
}

bool SplitNetwork(std::string_view text, Ipv6Address::Bytes& bytes, std::string& zone, int& prefix) {
    auto slash = text.rfind('/');
    if (slash == std::string_view::npos)
        return false;
    return ParsePrefix(text.substr(slash + 1), prefix) && ParseIpv6(text.substr(0, slash), bytes, zone);
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool ParseMac(std::string_view text, MacAddress::Bytes& bytes) {
    if (text.size() != 17)
        return false;
    for (size_t i = 0; i < 6; ++i) {
        int hi = HexDigit(text[i * 3]);
        int lo = HexDigit(text[i * 3 + 1]);
        if (hi < 0 || lo < 0 || (i < 5 && text[i * 3 + 2] != ':'))
            return false;
        bytes[i] = static_cast<uint8_t>(hi * 16 + lo);
    }
    return true;
}

[[noreturn]] void Invalid(const char* what, std::string_view text) {
    throw Lib::HostCtlException(std::string("Invalid ") + what + ": '" + std::string(text) + "'");
}

} // namespace

// ---- Ipv4Address

Ipv4Address::Ipv4Address(std::string_view text) {
    if (!text.empty() && !ParseIpv4(text, value_))
        Invalid("IPv4 address", text);
}

Ipv4Address Ipv4Address::FromBinary(uint32_t value) {
    Ipv4Address a;
    a.value_ = value;
    return a;
}

std::string Ipv4Address::GetStringAddress() const {
    char buffer[INET_ADDRSTRLEN];
    in_addr addr{};
    addr.s_addr = htonl(value_);
    inet_ntop(AF_INET, &addr, buffer, sizeof buffer);
    return buffer;
}

bool Ipv4Address::IsValidAddress(std::string_view text) {
    uint32_t ignored;
    return ParseIpv4(text, ignored);
}

bool Ipv4Address::IsValidNetmask() const {
    if (value_ == 0)
        return false;
    // Contiguous ones from the top: the inverted mask plus one is a power of two.
    uint32_t inverted = ~value_;
    return (inverted & (inverted + 1)) == 0;
}

// ---- Ipv6Address

Ipv6Address::Ipv6Address(std::string_view text) {
    if (!text.empty() && !ParseIpv6(text, bytes_, zone_))
        Invalid("IPv6 address", text);
}

Ipv6Address::Ipv6Address(const Bytes& bytes, std::string zone) : bytes_(bytes), zone_(std::move(zone)) {}

std::string Ipv6Address::GetStringAddress() const {
    char buffer[INET6_ADDRSTRLEN];
    in6_addr addr{};
    std::memcpy(addr.s6_addr, bytes_.data(), bytes_.size());
    inet_ntop(AF_INET6, &addr, buffer, sizeof buffer);
    return buffer;
}

std::string Ipv6Address::GetScopedStringAddress() const {
    std::string text = GetStringAddress();
    if (!zone_.empty())
        text += '%' + zone_;
    return text;
}

bool Ipv6Address::IsUnspecified() const {
    return bytes_ == Bytes{};
}

bool Ipv6Address::IsLinkLocal() const {
    return bytes_[0] == 0xfe && (bytes_[1] & 0xc0) == 0x80;
}

bool Ipv6Address::IsValidAddress(std::string_view text) {
    Bytes bytes;
    std::string zone;
    return ParseIpv6(text, bytes, zone);
}

// ---- Ipv6Network

Ipv6Network::Ipv6Network(const Ipv6Address& address, int prefixLength)
    : address_(address), prefix_(prefixLength), scope_(ScopeOf(address)) {
    if (prefixLength < 0 || prefixLength > 128)
        Invalid("IPv6 prefix length", std::to_string(prefixLength));
}

Ipv6Network::Ipv6Network(std::string_view text) {
    Ipv6Address::Bytes bytes;
    std::string zone;
    if (!SplitNetwork(text, bytes, zone, prefix_))
        Invalid("IPv6 network", text);
    address_ = Ipv6Address(bytes, zone);
    scope_ = ScopeOf(address_);
}

std::string Ipv6Network::GetStringAddress() const {
    return address_.GetStringAddress() + "/" + std::to_string(prefix_);
}

bool Ipv6Network::IsValidAddressAndNetmask(std::string_view text) {
    Ipv6Address::Bytes bytes;
    std::string zone;
    int prefix;
    return SplitNetwork(text, bytes, zone, prefix);
}

int Ipv6Network::ScopeOf(const Ipv6Address& address) {
    const auto& b = address.GetBinaryAddress();
    if (address.IsLinkLocal())
        return SCOPE_LINK;
    if (b[0] == 0xfe && (b[1] & 0xc0) == 0xc0)
        return SCOPE_SITE;
    Ipv6Address::Bytes loopback{};
    loopback[15] = 1;
    if (b == loopback)
        return SCOPE_HOST;
    return SCOPE_GLOBAL;
}

// ---- MacAddress

MacAddress::MacAddress(std::string_view text) {
    if (!ParseMac(text, bytes_))
        Invalid("MAC address", text);
}

std::string MacAddress::GetStringAddress() const {
    char buffer[18];
    std::snprintf(buffer, sizeof buffer, "%02x:%02x:%02x:%02x:%02x:%02x", bytes_[0], bytes_[1], bytes_[2],
                  bytes_[3], bytes_[4], bytes_[5]);
    return buffer;
}

bool MacAddress::IsValidAddress(std::string_view text) {
    Bytes bytes;
    return ParseMac(text, bytes);
}

} // namespace HostCtl::Network
