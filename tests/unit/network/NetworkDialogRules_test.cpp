// Enter-time decisions of the management network dialogs: the faulty row and message for hostile input,
// what valid input becomes, the VLAN range, adapter selection order and the adapter row's label cut.
#include "network/NetworkDialogRules.h"
#include "ui/TextIds.h"

#include <gtest/gtest.h>

using namespace HostCtl::Network;
using namespace Tarn;

TEST(NetworkDialogRules, Ipv4StaticRowsAreCheckedInOrder) {
    const FieldError badAddress{3, TextId::InvalidIpAddress, TextId::ReenterIpv4Address};
    const FieldError badSubnet{4, TextId::InvalidSubnet, TextId::ReenterSubnet};
    const FieldError badGateway{5, TextId::InvalidGatewayAddress, TextId::ReenterGateway};
    struct Case {
        const char *address, *mask, *gateway;
        std::optional<FieldError> error;
    } cases[] = {
        {"192.0.2.20", "255.255.255.0", "192.0.2.1", std::nullopt},
        {"192.0.2", "255.255.255.0", "192.0.2.1", badAddress},
        {"192.0.2.20", "255.0.255.0", "192.0.2.1", badSubnet},
        {"192.0.2.20", "0.0.0.0", "192.0.2.1", badSubnet},
        {"192.0.2.20", "255.255.255.0", "", badGateway},
        {"", "255.0.255.0", "", badAddress}, // the first faulty row wins
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.address) + " " + c.mask + " " + c.gateway);
        IpConfig config;
        EXPECT_EQ(ValidateIpv4(Ipv4Mode::Static, c.address, c.mask, c.gateway, config), c.error);
        if (!c.error) {
            EXPECT_EQ(config.GetIpv4Netmask(), Ipv4Address("255.255.255.0"));
        }
    }
}

TEST(NetworkDialogRules, Ipv4OutsideStaticIgnoresTheRows) {
    IpConfig config;
    config.SetIpv4Gateway(Ipv4Address("192.0.2.1"));
    EXPECT_FALSE(ValidateIpv4(Ipv4Mode::Dynamic, "garbage", "255.0.255.0", "x", config));
    EXPECT_TRUE(config.GetUseDhcp());
    EXPECT_EQ(config.GetIpv4Gateway(), Ipv4Address());
    EXPECT_FALSE(ValidateIpv4(Ipv4Mode::Disabled, "", "", "", config));
    EXPECT_FALSE(config.GetUseDhcp());
    EXPECT_TRUE(config.GetIpv4UseNone());
}

TEST(NetworkDialogRules, Ipv6StaticRowsAndGateway) {
    const Ipv6Result initial{true, false, false, {Ipv6Network("2001:db8::10/64")}, Ipv6Address("2001:db8::1"),
                             false};
    struct Case {
        std::array<std::string, 3> statics;
        std::string gateway;
        std::optional<FieldError> error;
    } cases[] = {
        {{"2001:db8::10/64", "", ""}, "2001:db8::1", std::nullopt},
        {{"", "2001:db8::11", ""}, "", FieldError{5, TextId::InvalidIpAddress, TextId::ReenterIpv6Network}},
        {{"", "", "fe80::5/64"}, "", FieldError{6, TextId::InvalidScope, TextId::NoLinkLocalStaticAddress}},
        {{"febf::5/10"}, "", FieldError{4, TextId::InvalidScope, TextId::NoLinkLocalStaticAddress}},
        {{"2001:db8::10/64"},
         "2001:db8::zz",
         FieldError{7, TextId::InvalidGatewayAddress, TextId::ReenterIpv6Gateway}},
        {{"2001:db8::10/64"},
         "fe80::1",
         FieldError{7, TextId::InvalidGatewayAddress, TextId::NoLinkLocalGateway}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.statics[0] + c.statics[1] + c.statics[2] + " gw " + c.gateway);
        Ipv6Result result;
        EXPECT_EQ(ValidateIpv6({Ipv6Mode::Static, c.statics, c.gateway}, initial, result), c.error);
    }

    // Unchanged rows are no edit; a new row is, and its network is static with its scope.
    Ipv6Result result;
    ASSERT_FALSE(ValidateIpv6({Ipv6Mode::Static, {"2001:db8::10/64"}, "2001:db8::1"}, initial, result));
    EXPECT_FALSE(result.staticEdited);
    ASSERT_FALSE(
        ValidateIpv6({Ipv6Mode::Static, {"2001:db8::10/64", "2001:db8::11/64"}, ""}, initial, result));
    EXPECT_TRUE(result.staticEdited);
    EXPECT_EQ(result.gateway, Ipv6Address());
    EXPECT_EQ(result.staticNetworks[1].GetIpv6Scope(), Ipv6Network::SCOPE_GLOBAL);
}

TEST(NetworkDialogRules, Ipv6AutomaticChoicesSkipTheRows) {
    const Ipv6Result initial{true, false, false, {}, Ipv6Address("2001:db8::1"), false};
    for (Ipv6Mode mode : {Ipv6Mode::RouterAdvertised, Ipv6Mode::Dhcpv6, Ipv6Mode::Disabled}) {
        Ipv6Result result;
        EXPECT_FALSE(ValidateIpv6({mode, {"not an address"}, "nor this"}, initial, result));
        EXPECT_EQ(result.enabled, mode != Ipv6Mode::Disabled);
        EXPECT_EQ(result.routerAdvertised, mode == Ipv6Mode::RouterAdvertised);
        EXPECT_EQ(result.dhcpv6, mode == Ipv6Mode::Dhcpv6);
        EXPECT_EQ(result.gateway, initial.gateway);
    }
    IpConfig stored;
    stored.SetUseIpv6RouterAdvertised(true);
    EXPECT_EQ(Ipv6ModeOf(true, stored), Ipv6Mode::RouterAdvertised);
    stored.SetUseIpv6Dhcp(true);
    EXPECT_EQ(Ipv6ModeOf(true, stored), Ipv6Mode::Dhcpv6);
    EXPECT_EQ(Ipv6ModeOf(false, stored), Ipv6Mode::Disabled);
}

TEST(NetworkDialogRules, DnsServers) {
    DnsResult result;
    EXPECT_EQ(ValidateDns(false, "192.0.2.53", "192.0.2", "h", result),
              (FieldError{3, TextId::InvalidDnsServerAddress, TextId::ReenterDnsServer}));
    EXPECT_EQ(ValidateDns(false, "bad", "192.0.2", "h", result)->row, 2);
    EXPECT_FALSE(ValidateDns(true, "bad", "bad", "h", result)) << "automatic: nothing checked";
    ASSERT_FALSE(ValidateDns(false, "2001:db8::53", "", "host02", result));
    EXPECT_TRUE(std::holds_alternative<Ipv6Address>(*result.primary));
    EXPECT_FALSE(result.alternate);
    EXPECT_EQ(result.hostname, "host02");
}

// The VLAN ID's range and refusals are the fuzz target fuzz_vlan_id's (the edges are in its corpus).
TEST(NetworkDialogRules, AdapterSelectionOrderAndRowText) {
    std::vector<std::string> selected;
    ToggleAdapter(selected, "nicx1");
    ToggleAdapter(selected, "nicx0");
    EXPECT_EQ(selected, (std::vector<std::string>{"nicx1", "nicx0"}));
    ToggleAdapter(selected, "nicx2");
    ToggleAdapter(selected, "nicx0");
    EXPECT_EQ(selected, (std::vector<std::string>{"nicx1", "nicx2"}));

    EXPECT_EQ(
        AdapterRowText("nicx0", "Acme 10G", "00:50:56:aa:00:00", "Connected"),
        "{align:padding:13}nicx0{/align}{align:padding:30}Acme 10G (00:50:56:aa:00:00){/align}Connected");
    EXPECT_EQ(
        AdapterRowText("nicx0", "Intel Corporation 82599", "00:50:56:aa:00:00", "Disconnected"),
        "{align:padding:13}nicx0{/align}{align:padding:30}Inte(...) (00:50:56:aa:00:00){/align}Disconnected");
}
