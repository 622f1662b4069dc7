// The harness's simulated hosts: removed afterwards, and a bad scenario reported with simhost's own words.
#include "support/TestHost.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace e2e {
namespace {

TEST(TestHost, IsRemovedAfterUseAndAnUnknownScenarioIsNamedInTheError) {
    std::string dir;
    {
        TestHost host("default");
        dir = host.Root();
        ASSERT_TRUE(std::filesystem::exists(host.Path("var/run/orvane/show-tarn-login")));
    }
    if (!std::getenv("TARN_E2E_KEEP")) {
        EXPECT_FALSE(std::filesystem::exists(dir));
    }
    try {
        TestHost host("no-such-scenario");
        FAIL() << "created " << host.Root();
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("no-such-scenario"), std::string::npos) << e.what();
    }
}

} // namespace
} // namespace e2e
