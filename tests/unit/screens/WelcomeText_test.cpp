// Welcome screen texts: address lines, labels, warning precedence, hardware and memory figures.
#include "screens/WelcomeText.h"
#include "ui/StringFactory.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

const StringFactory& Strings() {
    return *StringFactory::Get("en_US");
}

std::vector<WelcomeIpv6Address> Addresses(int count) {
    std::vector<WelcomeIpv6Address> list;
    // Given in descending order so that sorting is visible.
    for (int i = count; i >= 1; --i)
        list.push_back({"2001:db8::" + std::to_string(i), i % 2 ? 0 : 9});
    return list;
}

TEST(WelcomeIpv6, FourAreShownSortedThenEllipsis) {
    std::string text = Ipv6Lines(Strings(), Addresses(6));
    EXPECT_EQ(text, "https://[2001:db8::3]/ (STATIC)\n"
                    "https://[2001:db8::4]/ (DHCP)\n"
                    "https://[2001:db8::5]/ (STATIC)\n"
                    "https://[2001:db8::6]/ (DHCP)\n"
                    "...\n");
}

TEST(WelcomeIpv6, ExactlyFiveAreAllShown) {
    std::string text = Ipv6Lines(Strings(), Addresses(5));
    EXPECT_EQ(text.find("..."), std::string::npos);
    EXPECT_NE(text.find("[2001:db8::1]"), std::string::npos);
    EXPECT_NE(text.find("[2001:db8::5]"), std::string::npos);
}

TEST(WelcomeIpv6, OriginLabels) {
    std::string text = Ipv6Lines(Strings(), {{"fe80::1", 7}, {"2001:db8::9", 3}});
    EXPECT_EQ(text, "https://[2001:db8::9]/ \nhttps://[fe80::1]/ (AUTOCONF)\n");
}

TEST(WelcomeManagement, LabelPlacement) {
    struct Case {
        WelcomeNetworkFacts facts;
        std::string expected;
    } cases[] = {
        {{"host01", false, false, "192.0.2.10", false, false, {}},
         "To manage this host, go to:\nhttps://host01/ \nhttps://192.0.2.10/ (STATIC)"},
        {{"localhost", true, false, "192.0.2.77", true, false, {}},
         "To manage this host, go to:\nhttps://192.0.2.77/ (DHCP)"},
        {{"", true, false, "0.0.0.0", false, false, {}},
         "To manage this host, go to:\nhttps://0.0.0.0/ (Waiting for DHCP...)"},
        // IPv4 off with DHCP in use: the label follows the host-name line.
        {{"host01", true, true, "", true, false, {}}, "To manage this host, go to:\nhttps://host01/ (DHCP)"},
        {{"", false, true, "", false, false, {}}, "To manage this host, go to:"},
        {{"h", false, false, "192.0.2.10", false, true, {{"2001:db8::1", 0}}},
         "To manage this host, go to:\nhttps://h/ \nhttps://192.0.2.10/ (STATIC)\nhttps://[2001:db8::1]/ "
         "(STATIC)\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ManagementText(Strings(), c.facts), c.expected);
}

TEST(WelcomeWarning, AuditModeWins) {
    EXPECT_EQ(WarningTextId(true, false, false), 140u);
    EXPECT_EQ(WarningTextId(true, false, true), 141u);
    EXPECT_EQ(WarningTextId(false, false, true), 141u);
    EXPECT_EQ(WarningTextId(true, true, false), 0u);
    EXPECT_EQ(WarningTextId(false, false, false), 0u);
}

TEST(WelcomeHardware, VendorRule) {
    EXPECT_EQ(HardwareLine("Acme", "Acme Server 9"), "Acme Server 9");
    EXPECT_EQ(HardwareLine("  Big   Iron  Inc ", "Model\t7"), "Big Iron Inc Model 7");
    EXPECT_EQ(HardwareLine("Acme", "  Acme   Server "), "Acme Server");
}

TEST(WelcomeMemory, Figures) {
    const uint64_t MiB = uint64_t(1) << 20, GiB = MiB << 10;
    EXPECT_EQ(MemoryFigure(1023 * MiB), "1023 MiB Memory");
    EXPECT_EQ(MemoryFigure(GiB), "1 GiB Memory");
    EXPECT_EQ(MemoryFigure(uint64_t(31.9 * GiB)), "31.9 GiB Memory");
    EXPECT_EQ(MemoryFigure(1536 * MiB), "1.5 GiB Memory");
    EXPECT_EQ(MemoryFigure(2 * (GiB << 10)), "2 TiB Memory");
}

TEST(WelcomeFooter, KeyHintsLeftAndRight) {
    EXPECT_EQ(WelcomeFooter(Strings()),
              "<F2> {color:dark-grey}Customize System/View Logs{/color}{align:right}<F12> "
              "{color:dark-grey}Shut Down/Restart{/color}{/align}");
}

TEST(WelcomeCpu, PackagesAndMemoryLine) {
    EXPECT_EQ(CpuAndMemoryText(1, " Xeon   Gold ", 262144, 4096), "Xeon Gold\n1 GiB Memory");
    EXPECT_EQ(CpuAndMemoryText(2, "Xeon", 262144, 4096), "2 x Xeon\n1 GiB Memory");
}

} // namespace
} // namespace Tarn
