// Address value types of the host-control network model: IPv4 and IPv6 addresses, IPv6 networks (address
// with prefix length) and MAC addresses. Pure code; validation follows inet_pton, so dotted quads only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace HostCtl::Network {

// Common base of the two address families (the argument type of DnsConfigImpl::AddNameServer).
class IpAddress {
public:
    enum class Family { Ipv4, Ipv6 };

    virtual ~IpAddress() = default;
    virtual Family GetFamily() const = 0;
    virtual std::string GetStringAddress() const = 0;

protected:
    IpAddress() = default;
    IpAddress(const IpAddress&) = default;
    IpAddress& operator=(const IpAddress&) = default;
};

class Ipv4Address : public IpAddress {
public:
    // Value 0: unset.
    Ipv4Address() = default;
    // A dotted quad; the empty text gives the unset value; anything else invalid throws HostCtlException.
    explicit Ipv4Address(std::string_view text);
    // Host byte order: 192.0.2.1 is 0xC0000201.
    static Ipv4Address FromBinary(uint32_t value);

    Family GetFamily() const override { return Family::Ipv4; }
    std::string GetStringAddress() const override;
    uint32_t GetBinaryAddress() const { return value_; }

    // Exactly four decimal parts 0-255 without leading zeros or any other character.
    static bool IsValidAddress(std::string_view text);
    // Contiguous ones from the top; 0.0.0.0 is refused (it means "unset").
    bool IsValidNetmask() const;

    bool operator==(const Ipv4Address& other) const { return value_ == other.value_; }

private:
    uint32_t value_ = 0;
};

class Ipv6Address : public IpAddress {
public:
    using Bytes = std::array<uint8_t, 16>;

    // "::": unset.
    Ipv6Address() = default;
    // An address with an optional zone ("fe80::1%tes0"); empty gives "::"; invalid throws HostCtlException.
    explicit Ipv6Address(std::string_view text);
    explicit Ipv6Address(const Bytes& bytes, std::string zone = {});

    Family GetFamily() const override { return Family::Ipv6; }
    // Canonical text without the zone.
    std::string GetStringAddress() const override;
    // With "%zone" when a zone is set.
    std::string GetScopedStringAddress() const;
    const Bytes& GetBinaryAddress() const { return bytes_; }
    const std::string& GetZone() const { return zone_; }

    bool IsUnspecified() const;
    // Inside fe80::/10.
    bool IsLinkLocal() const;

    // An inet_pton address, optionally followed by "%" and a non-empty zone of letters, digits, '.', '-',
    // '_'.
    static bool IsValidAddress(std::string_view text);

    // Zones take part: fe80::1%tes0 and fe80::1%tes1 are different addresses.
    bool operator==(const Ipv6Address& other) const { return bytes_ == other.bytes_ && zone_ == other.zone_; }

private:
    Bytes bytes_{};
    std::string zone_;
};

// An IPv6 address with its prefix length, origin type and scope.
class Ipv6Network {
public:
    // Origin of an address.
    static constexpr int TYPE_STATIC = 0;
    static constexpr int TYPE_AUTOCONF = 7;
    static constexpr int TYPE_DHCP = 9;
    // Scope of an address.
    static constexpr int SCOPE_GLOBAL = 0;
    static constexpr int SCOPE_LINK = 1;
    static constexpr int SCOPE_SITE = 2;
    static constexpr int SCOPE_HOST = 3;

    Ipv6Network() = default;
    // Scope follows from the address; type is static.
    Ipv6Network(const Ipv6Address& address, int prefixLength);
    // "address/prefix"; invalid throws HostCtlException.
    explicit Ipv6Network(std::string_view text);

    const Ipv6Address& GetAddress() const { return address_; }
    int GetPrefixLength() const { return prefix_; }
    // Address, "/" and the prefix length.
    std::string GetStringAddress() const;

    int GetIpv6AddressType() const { return type_; }
    void SetIpv6AddressType(int type) { type_ = type; }
    int GetIpv6Scope() const { return scope_; }
    void SetIpv6Scope(int scope) { scope_ = scope; }

    // "address/prefix" with a valid address and a decimal prefix 0-128 without leading zeros.
    static bool IsValidAddressAndNetmask(std::string_view text);
    // Scope an address has by its value: link for fe80::/10, host for ::1, site for fec0::/10.
    static int ScopeOf(const Ipv6Address& address);

    // Same address and prefix; type and scope describe the address and do not take part.
    bool operator==(const Ipv6Network& other) const {
        return address_ == other.address_ && prefix_ == other.prefix_;
    }

private:
    Ipv6Address address_;
    int prefix_ = 0;
    int type_ = TYPE_STATIC;
    int scope_ = SCOPE_GLOBAL;
};

class MacAddress {
public:
    using Bytes = std::array<uint8_t, 6>;

    MacAddress() = default;
    // Six two-digit hex parts separated by ':'; invalid throws HostCtlException.
    explicit MacAddress(std::string_view text);
    explicit MacAddress(const Bytes& bytes) : bytes_(bytes) {}

    // Lower case, colon separated.
    std::string GetStringAddress() const;
    const Bytes& GetBinaryAddress() const { return bytes_; }

    static bool IsValidAddress(std::string_view text);

    bool operator==(const MacAddress& other) const { return bytes_ == other.bytes_; }

private:
    Bytes bytes_{};
};

} // namespace HostCtl::Network
