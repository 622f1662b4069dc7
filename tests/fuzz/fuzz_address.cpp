// Address parsing against the C library: IPv4 and IPv6 addresses are accepted exactly when inet_pton accepts
// them (an IPv6 zone aside), netmasks exactly when their ones are contiguous, "address/prefix" exactly with
// a prefix 0-128, MAC addresses exactly as six two-digit hex parts; accepted texts round-trip.
#include "FuzzCheck.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkTypes.h"

#include <arpa/inet.h>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <string>

using namespace HostCtl::Network;

namespace {

bool Pton(int family, const std::string& text, void* out) {
    return text.find('\0') == std::string::npos && inet_pton(family, text.c_str(), out) == 1;
}

bool ZoneChars(const std::string& zone) {
    if (zone.empty() || zone.size() > 64) // longer than any interface name
        return false;
    for (unsigned char c : zone)
        if (!std::isalnum(c) && c != '.' && c != '-' && c != '_')
            return false;
    return true;
}

// inet_pton's verdict on an IPv6 text with an optional zone; `bytes` receives the address.
bool Ipv6Expected(const std::string& text, in6_addr& bytes) {
    const size_t percent = text.find('%');
    if (percent == std::string::npos)
        return Pton(AF_INET6, text, &bytes);
    return Pton(AF_INET6, text.substr(0, percent), &bytes) && ZoneChars(text.substr(percent + 1));
}

void CheckIpv4(const std::string& text) {
    in_addr addr{};
    const bool expected = Pton(AF_INET, text, &addr);
    FUZZ_CHECK(Ipv4Address::IsValidAddress(text) == expected);
    if (!expected)
        return;
    Ipv4Address parsed(text);
    FUZZ_CHECK(parsed.GetStringAddress() == text);
    const uint32_t value = ntohl(addr.s_addr);
    FUZZ_CHECK(parsed.GetBinaryAddress() == value);
    const bool contiguous = value != 0 && (~value & (~value + 1)) == 0;
    FUZZ_CHECK(parsed.IsValidNetmask() == contiguous);
}

void CheckIpv6(const std::string& text) {
    in6_addr addr{};
    const bool expected = Ipv6Expected(text, addr);
    FUZZ_CHECK(Ipv6Address::IsValidAddress(text) == expected);
    if (!expected)
        return;
    Ipv6Address parsed(text);
    FUZZ_CHECK(std::memcmp(parsed.GetBinaryAddress().data(), addr.s6_addr, 16) == 0);
    FUZZ_CHECK(Ipv6Address(parsed.GetScopedStringAddress()) == parsed);
}

void CheckNetwork(const std::string& text) {
    const size_t slash = text.rfind('/');
    bool expected = false;
    in6_addr addr{};
    if (slash != std::string::npos && Ipv6Expected(text.substr(0, slash), addr)) {
        const std::string prefix = text.substr(slash + 1);
        const bool digits = !prefix.empty() && prefix.size() <= 3 &&
                            prefix.find_first_not_of("0123456789") == std::string::npos &&
                            (prefix.size() == 1 || prefix[0] != '0');
        expected = digits && std::stoi(prefix) <= 128;
    }
    FUZZ_CHECK(Ipv6Network::IsValidAddressAndNetmask(text) == expected);
    if (!expected)
        return;
    Ipv6Network parsed(text);
    FUZZ_CHECK(std::to_string(parsed.GetPrefixLength()) == text.substr(slash + 1));
    FUZZ_CHECK(std::memcmp(parsed.GetAddress().GetBinaryAddress().data(), addr.s6_addr, 16) == 0);
    FUZZ_CHECK(Ipv6Network(parsed.GetStringAddress()).GetAddress().GetBinaryAddress() ==
               parsed.GetAddress().GetBinaryAddress());
}

void CheckMac(const std::string& text) {
    bool expected = text.size() == 17;
    for (size_t i = 0; expected && i < text.size(); ++i)
        expected = i % 3 == 2 ? text[i] == ':' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
    FUZZ_CHECK(MacAddress::IsValidAddress(text) == expected);
    if (!expected)
        return;
    std::string lower = text;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    FUZZ_CHECK(MacAddress(text).GetStringAddress() == lower);
}

// Constructors agree with the validators: they throw exactly for what the validators refuse.
template <typename T> void CheckThrows(const std::string& text, bool valid) {
    try {
        T value(text);
        FUZZ_CHECK(valid);
    } catch (const HostCtl::Lib::HostCtlException&) {
        FUZZ_CHECK(!valid);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1)
        return 0;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    switch (data[0] % 4) {
    case 0:
        CheckIpv4(text);
        CheckThrows<Ipv4Address>(text, text.empty() || Ipv4Address::IsValidAddress(text));
        break;
    case 1:
        CheckIpv6(text);
        CheckThrows<Ipv6Address>(text, text.empty() || Ipv6Address::IsValidAddress(text));
        break;
    case 2:
        CheckNetwork(text);
        CheckThrows<Ipv6Network>(text, Ipv6Network::IsValidAddressAndNetmask(text));
        break;
    default:
        CheckMac(text);
        CheckThrows<MacAddress>(text, MacAddress::IsValidAddress(text));
        break;
    }
    return 0;
}
