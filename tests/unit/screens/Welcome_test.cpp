// Welcome screen texts (address lines and labels, warning precedence, hardware and memory figures) and its
// geometry on terminals of different sizes.
#include "screens/WelcomeLayout.h"
#include "screens/WelcomeText.h"
#include "ui/StringFactory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

namespace Tarn {
namespace {

const StringFactory& Strings() {
    return *StringFactory::Get("en_US");
}

TEST(WelcomeText, Ipv6LinesAreSortedAndCutAfterFour) {
    auto addresses = [](int count) { // in descending order so that sorting is visible
        std::vector<WelcomeIpv6Address> list;
        for (int i = count; i >= 1; --i)
            list.push_back({"2001:db8::" + std::to_string(i), i % 2 ? 0 : 9});
        return list;
    };
    EXPECT_EQ(Ipv6Lines(Strings(), addresses(6)), "https://[2001:db8::3]/ (STATIC)\n"
                                                  "https://[2001:db8::4]/ (DHCP)\n"
                                                  "https://[2001:db8::5]/ (STATIC)\n"
                                                  "https://[2001:db8::6]/ (DHCP)\n"
                                                  "...\n");
    const std::string five = Ipv6Lines(Strings(), addresses(5)); // exactly five are all shown
    EXPECT_EQ(five.find("..."), std::string::npos);
    EXPECT_NE(five.find("[2001:db8::1]"), std::string::npos);
    EXPECT_NE(five.find("[2001:db8::5]"), std::string::npos);
    EXPECT_EQ(Ipv6Lines(Strings(), {{"fe80::1", 7}, {"2001:db8::9", 3}}),
              "https://[2001:db8::9]/ \nhttps://[fe80::1]/ (AUTOCONF)\n");
}

TEST(WelcomeText, ManagementLabels) {
    const std::string head = "To manage this host, go to:";
    const struct {
        WelcomeNetworkFacts facts;
        std::string expected;
    } cases[] = {
        {{"host01", false, false, "192.0.2.10", false, false, {}},
         head + "\nhttps://host01/ \nhttps://192.0.2.10/ (STATIC)"},
        {{"localhost", true, false, "192.0.2.77", true, false, {}}, head + "\nhttps://192.0.2.77/ (DHCP)"},
        {{"", true, false, "0.0.0.0", false, false, {}}, head + "\nhttps://0.0.0.0/ (Waiting for DHCP...)"},
        // IPv4 off with DHCP in use: the label follows the host-name line.
        {{"host01", true, true, "", true, false, {}}, head + "\nhttps://host01/ (DHCP)"},
        {{"", false, true, "", false, false, {}}, head},
        {{"h", false, false, "192.0.2.10", false, true, {{"2001:db8::1", 0}}},
         head + "\nhttps://h/ \nhttps://192.0.2.10/ (STATIC)\nhttps://[2001:db8::1]/ (STATIC)\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ManagementText(Strings(), c.facts), c.expected);
}

TEST(WelcomeText, WarningHardwareAndMemory) {
    // Audit mode wins over the no-adapter warning; any other alert hides it.
    EXPECT_EQ(WarningTextId(true, false, false), 140u);
    EXPECT_EQ(WarningTextId(true, false, true), 141u);
    EXPECT_EQ(WarningTextId(false, false, true), 141u);
    EXPECT_EQ(WarningTextId(true, true, false), 0u);
    EXPECT_EQ(WarningTextId(false, false, false), 0u);

    EXPECT_EQ(HardwareLine("Acme", "Acme Server 9"), "Acme Server 9");
    EXPECT_EQ(HardwareLine("  Big   Iron  Inc ", "Model\t7"), "Big Iron Inc Model 7");
    EXPECT_EQ(HardwareLine("Acme", "  Acme   Server "), "Acme Server");

    const uint64_t MiB = uint64_t(1) << 20, GiB = MiB << 10;
    EXPECT_EQ(MemoryFigure(1023 * MiB), "1023 MiB Memory");
    EXPECT_EQ(MemoryFigure(GiB), "1 GiB Memory");
    EXPECT_EQ(MemoryFigure(uint64_t(31.9 * GiB)), "31.9 GiB Memory");
    EXPECT_EQ(MemoryFigure(1536 * MiB), "1.5 GiB Memory");
    EXPECT_EQ(MemoryFigure(2 * (GiB << 10)), "2 TiB Memory");
    // The rounding against the maths library's, over every unit and the halfway points between tenths.
    for (uint64_t unit : {MiB, GiB, GiB << 10, GiB << 20})
        for (uint64_t tenths = 0; tenths < 10240; tenths += 7)
            for (int64_t nudge : {-1, 0, 1}) {
                const uint64_t total = (2 * tenths + 1) * unit / 20 + nudge;
                uint64_t u = MiB;
                while (u < (GiB << 20) && total >= u * 1024)
                    u *= 1024;
                const float t = std::round(static_cast<float>(total) * 10.0f / static_cast<float>(u));
                char want[64];
                std::snprintf(want, sizeof want, std::fmod(t, 10.0f) == 0.0f ? "%.0f" : "%.1f", t / 10.0f);
                ASSERT_EQ(MemoryFigure(total).substr(0, MemoryFigure(total).find(' ')), want) << total;
            }
    EXPECT_EQ(CpuAndMemoryText(1, " Xeon   Gold ", 262144, 4096), "Xeon Gold\n1 GiB Memory");
    EXPECT_EQ(CpuAndMemoryText(2, "Xeon", 262144, 4096), "2 x Xeon\n1 GiB Memory");
}

TEST(WelcomeLayout, HalvesCoverTheScreenAndNoBoxReachesTheFooterOrABorder) {
    const WelcomeGeometry even = ComputeWelcomeGeometry(100, 30);
    EXPECT_EQ(even.top, (WelcomeRect{0, 0, 100, 15}));
    EXPECT_EQ(even.bottom, (WelcomeRect{0, 15, 100, 15}));
    EXPECT_EQ(even.footer, (WelcomeRect{2, 13, 96, 1}));
    EXPECT_EQ(even.warning, (WelcomeRect{16, 9, 68, 4}));
    EXPECT_EQ(even.message, (WelcomeRect{2, 2, 96, 26}));
    // An odd line goes to the bottom half, and the footer moves with it.
    const WelcomeGeometry odd = ComputeWelcomeGeometry(80, 25);
    EXPECT_EQ(odd.bottom, (WelcomeRect{0, 12, 80, 13}));
    EXPECT_EQ(odd.footer.row, 11);
    EXPECT_EQ(odd.management, (WelcomeRect{8, 1, 64, 7}));
    EXPECT_GE(odd.warning.height, 3) << "a whole warning at 80x25";

    for (auto [columns, lines] :
         {std::pair{100, 30}, {80, 25}, {80, 24}, {120, 50}, {50, 12}, {40, 16}, {30, 8}}) {
        SCOPED_TRACE(std::to_string(columns) + "x" + std::to_string(lines));
        const WelcomeGeometry g = ComputeWelcomeGeometry(columns, lines);
        // A box with no room has no rows, wherever it stands.
        const auto end = [](const WelcomeRect& r) { return r.height > 0 ? r.row + r.height : 0; };
        for (const WelcomeRect& box : {g.header, g.hardware, g.cpuMemory})
            EXPECT_LE(end(box), g.top.height - 1) << "above the top half's border";
        for (const WelcomeRect& box : {g.management, g.warning})
            EXPECT_LE(end(box), g.footer.row) << "above the footer";
        if (g.warning.height > 0) {
            EXPECT_GE(g.warning.row, end(g.management)) << "under the addresses";
        }
    }
}

} // namespace
} // namespace Tarn
