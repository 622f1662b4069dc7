// The harness's simulated hosts: created from a scenario, readable, removed afterwards; a bad scenario is
// reported with simhost's own words.
#include "harness/Paths.h"
#include "harness/SimHost.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace e2e {
namespace {

bool HaveSimhost() {
    return access((BuildDir() + "/simhost").c_str(), X_OK) == 0;
}

TEST(SimHost, CreatesReadsAndRemovesAHost) {
    if (!HaveSimhost())
        GTEST_SKIP() << "simhost not built";
    std::string dir;
    {
        SimHost host("default");
        dir = host.Dir();
        EXPECT_EQ(host.TarnHostValue(), "sim:" + dir);
        EXPECT_TRUE(host.HostJson().contains("system"));
        EXPECT_TRUE(std::filesystem::exists(host.Path("var/run/orvane/show-tarn-login")));
        host.WriteFile("var/log/syslog.log", "a TARN[1]: Starting TARN\nb TARN[1]: other\n");
        EXPECT_EQ(host.SyslogLines().size(), 2u);
        EXPECT_EQ(host.SyslogMatching("Starting").size(), 1u);
        host.WriteFile("var/log/simhost-calls.log", "[\"/bin/kelp-cmd\",\"network\"]\n");
        EXPECT_EQ(host.ToolCalls(), (std::vector<std::vector<std::string>>{{"/bin/kelp-cmd", "network"}}));
        EXPECT_EQ(host.ReadFile("no/such/file"), "");
    }
    if (!std::getenv("TARN_E2E_KEEP")) {
        EXPECT_FALSE(std::filesystem::exists(dir));
    }
}

TEST(SimHost, UnknownScenarioFailsWithSimhostsMessage) {
    if (!HaveSimhost())
        GTEST_SKIP() << "simhost not built";
    try {
        SimHost host("no-such-scenario");
        FAIL() << "created " << host.Dir();
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("no-such-scenario"), std::string::npos) << e.what();
    }
}

} // namespace
} // namespace e2e
