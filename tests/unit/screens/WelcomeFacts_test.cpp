// Welcome screen facts read from simulated hosts: what each host state yields, and the values a broken host
// leaves (with the failures logged) instead of an exception.
#include "platform/DnsConfig.h"
#include "platform/HostRoot.h"
#include "platform/SystemInfo.h"
#include "screens/WelcomeFacts.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace Tarn {
namespace {

using Json = nlohmann::json;

class WelcomeFactsTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-welcome-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
        const char* build = std::getenv("TARN_BUILD_DIR");
        const std::string buildDir =
            build != nullptr && *build != '\0'
                ? build
                : std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
        const std::string init = buildDir + "/simhost init " + dir_ + " >/dev/null 2>&1";
        ASSERT_EQ(std::system(init.c_str()), 0) << init;
        Platform::UseSimulatedHost(dir_);
    }
    void TearDown() override {
        Platform::UseRealHost();
        std::filesystem::remove_all(dir_);
    }

    std::string Read(const std::string& relative) const {
        std::ifstream in(dir_ + "/" + relative);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    void Edit(void (*edit)(Json&)) const {
        Json state = Json::parse(Read("etc/simhost/host.json"));
        edit(state);
        std::ofstream(dir_ + "/etc/simhost/host.json") << state.dump();
    }
    WelcomeFacts Facts() const {
        TesCtl::Network::DnsConfigImpl dns;
        return ReadWelcomeFacts(dns);
    }

    std::string dir_;
};

TEST_F(WelcomeFactsTest, StoredSettingsDecideDhcpAndRunningOnesTheAddress) {
    Edit([](Json& s) {
        auto& tes0 = s["tesnics"][0];
        tes0["stored"]["dhcp"] = true;
        tes0["stored"]["ipv4None"] = true;
        tes0["running"]["address"] = "192.0.2.99";
        tes0["dhcpServer"] = "192.0.2.2";
        s["system"]["bootOptions"]["auditMode"] = true;
        s["ipv6"]["enabled"] = false;
    });
    const WelcomeFacts f = Facts();
    EXPECT_TRUE(f.network.dhcp);
    EXPECT_TRUE(f.network.ipv4Disabled);
    EXPECT_EQ(f.network.ipv4Address, "192.0.2.99");
    EXPECT_TRUE(f.network.dhcpServerKnown);
    EXPECT_FALSE(f.network.ipv6Enabled);
    EXPECT_TRUE(f.auditMode);
}

TEST_F(WelcomeFactsTest, NoManagementInterfaceShowsUnsetStaticAddress) {
    Edit([](Json& s) {
        s["management"] = "";
        s["tesnics"][0]["stored"]["dhcp"] = true;
    });
    const WelcomeFacts f = Facts();
    EXPECT_EQ(f.network.ipv4Address, "0.0.0.0");
    EXPECT_FALSE(f.network.dhcp);
    EXPECT_FALSE(f.network.ipv4Disabled);
    EXPECT_TRUE(f.network.ipv6.empty());
    EXPECT_EQ(f.network.hostname, "host01") << "the rest of the host is still read";
}

TEST_F(WelcomeFactsTest, UnreadableHostGivesDefaultsAndLogsEachFailure) {
    std::ofstream(dir_ + "/etc/simhost/host.json") << "{ not json";
    const WelcomeFacts f = Facts();
    EXPECT_EQ(f.network.ipv4Address, "0.0.0.0");
    EXPECT_TRUE(f.network.hostname.empty());
    EXPECT_FALSE(f.network.ipv6Enabled);
    EXPECT_TRUE(f.hasAdapters) << "an unreadable list must not raise the no-adapter alert";
    EXPECT_FALSE(f.auditMode);
    EXPECT_EQ(f.cpuPackages, 0u);
    EXPECT_EQ(f.totalPages, 0u);

    TesCtl::System::SystemInfoImpl system;
    EXPECT_EQ(ReadWelcomeMessage(system), "");
    const std::string log = Read("var/log/syslog.log");
    for (const char* action : {"Getting physical nics failed: ", "Getting hostname failed: ",
                               "Getting memory information failed: ", "Getting welcome message failed: "})
        EXPECT_NE(log.find(action), std::string::npos) << action << " not in\n" << log;
}

} // namespace
} // namespace Tarn
