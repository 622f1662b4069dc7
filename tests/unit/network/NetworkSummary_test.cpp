// The window's summaries: "Not set" for every unset value, at most three IPv6 addresses then "...", the
// IPv6 notices, and the adapter detail falling back to the MAC address.
#include "network/NetworkSummary.h"
#include "ui/StringFactory.h"

#include <gtest/gtest.h>

using namespace HostCtl::Network;
using namespace Tarn;

namespace {

std::string Summary(NetworkEntry entry, const PendingNetworkConfig& p, bool inKernel = true,
                    const std::map<std::string, PhysicalNicInfo>& nics = {}) {
    return NetworkSummary(entry, p, nics, inKernel, *StringFactory::Get("en_US"));
}

// Whether `text` begins with `prefix`, printing the text when it does not.
::testing::AssertionResult Starts(const std::string& text, const std::string& prefix) {
    if (text.rfind(prefix, 0) == 0)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << text;
}

} // namespace

TEST(NetworkSummary, UnsetValuesShowNotSet) {
    PendingNetworkConfig p;
    EXPECT_TRUE(
        Starts(Summary(NetworkEntry::Ipv4, p),
               "{color:white}Manual\n\nIPv4 Address: Not set\nSubnet Mask: Not set\nDefault Gateway: Not "
               "set\n\n{/col"));
    EXPECT_TRUE(Starts(Summary(NetworkEntry::Vlan, p), "{color:white}Not set\n\n"));
    EXPECT_TRUE(Starts(Summary(NetworkEntry::Suffixes, p), "{color:white}Not set\n\n"));
    const std::string dns = Summary(NetworkEntry::Dns, p);
    EXPECT_NE(dns.find("Primary DNS Server:\nNot set\nAlternate DNS Server:\nNot set\n\nHostname\nNot set"),
              std::string::npos)
        << dns;
    p.stored.SetUseDhcp(true);
    EXPECT_TRUE(Starts(Summary(NetworkEntry::Ipv4, p), "{color:white}Automatic"));
    p.stored.SetUseDhcp(false);
    p.running.SetUseDhcp(false, true);
    EXPECT_TRUE(Starts(Summary(NetworkEntry::Ipv4, p), "{color:white}None"));
}

TEST(NetworkSummary, Ipv6AddressesAndNotices) {
    PendingNetworkConfig p;
    p.ipv6Enabled = true;
    for (const char* text : {"2001:db8::1/64", "2001:db8::2/64", "2001:db8::3/64", "2001:db8::4/64"})
        p.running.AddIpv6Network(Ipv6Network(text));
    const std::string four = Summary(NetworkEntry::Ipv6, p);
    EXPECT_NE(four.find("2001:db8::3/64\n...\n\nDefault Gateway: Not set"), std::string::npos) << four;
    EXPECT_EQ(four.find("2001:db8::4"), std::string::npos);

    p.running.RemoveIpv6Network(Ipv6Network("2001:db8::4/64"));
    p.running.SetIpv6Gateway(Ipv6Address("2001:db8::fe"));
    const std::string three = Summary(NetworkEntry::Ipv6, p);
    EXPECT_NE(three.find("2001:db8::3/64\n\nDefault Gateway: 2001:db8::fe"), std::string::npos) << three;

    EXPECT_NE(Summary(NetworkEntry::Ipv6, p, false)
                  .find("The support for IPv6 will be enabled after the next reboot."),
              std::string::npos);
    p.ipv6Enabled = false;
    EXPECT_NE(Summary(NetworkEntry::Ipv6, p).find("This host can be configured to support IPv6."),
              std::string::npos);
}

TEST(NetworkSummary, AdaptersShowLabelOrMac) {
    PendingNetworkConfig p;
    p.adapters = {"nicx1", "nicx0"};
    std::map<std::string, PhysicalNicInfo> nics;
    nics["nicx0"] = {"nicx0", "Acme 10G", "00:50:56:aa:00:00", "Connected", true};
    nics["nicx1"] = {"nicx1", "", "00:50:56:aa:00:01", "Connected", true};
    EXPECT_TRUE(Starts(Summary(NetworkEntry::Adapters, p, true, nics),
                       "{color:white}nicx1 (00:50:56:aa:00:01)\nnicx0 (Acme 10G)\n\n{/color}{color:light"));
}
