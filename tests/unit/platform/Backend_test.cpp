// Host selection from TARN_HOST, with the environment and the creation of the default host passed in, so
// that nothing is written outside a temporary directory.
#include "platform/Backend.h"
#include "platform/HostRoot.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

class BackendTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/tarn-backend-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        tmp_ = pattern;
        Platform::UseRealHost();
    }
    void TearDown() override {
        Platform::UseRealHost();
        fs::remove_all(tmp_);
    }

    // A creator that records its calls and, like the real one, leaves a state file behind.
    Platform::SimHostCreator RecordingCreator(bool writeState = true) {
        return [this, writeState](const std::string& dir) {
            created_.push_back(dir);
            if (writeState) {
                fs::create_directories(dir + "/etc/simhost");
                std::ofstream(dir + "/etc/simhost/host.json") << "{}";
            }
        };
    }

    std::string tmp_;
    std::vector<std::string> created_;
};

TEST_F(BackendTest, ExplicitValues) {
    struct Case {
        const char* value;
        bool ok;
        bool simulated;
        std::string root;
    };
    const std::string cwd = fs::current_path().string();
    const Case cases[] = {
        {"sim:/srv/hosts/a", true, true, "/srv/hosts/a"},
        {"sim:/srv/hosts/a/", true, true, "/srv/hosts/a"},
        {"sim:rel/path", true, true, cwd + "/rel/path"},
        {"sim:./rel/../other", true, true, cwd + "/other"},
        {"linux", true, false, "/"},
        {"sim:", false, false, "/"},
        {"", false, false, "/"},
        {"sim", false, false, "/"},
        {"Linux", false, false, "/"},
        {"linux ", false, false, "/"},
        {"simulated:/x", false, false, "/"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("TARN_HOST=\"") + c.value + "\"");
        Platform::UseRealHost();
        Platform::HostEnvironment env{c.value, tmp_.c_str(), tmp_.c_str()};
        std::string error = Platform::SelectHost(env, RecordingCreator());
        EXPECT_EQ(error.empty(), c.ok) << error;
        EXPECT_EQ(Platform::IsSimulatedHost(), c.simulated);
        EXPECT_EQ(Platform::HostRoot(), c.root);
    }
    EXPECT_TRUE(created_.empty()) << "an explicit TARN_HOST never creates a host";
}

TEST_F(BackendTest, LinuxAfterSimulatedSwitchesBack) {
    Platform::HostEnvironment sim{"sim:/a", nullptr, nullptr};
    ASSERT_EQ(Platform::SelectHost(sim, RecordingCreator()), "");
    Platform::HostEnvironment real{"linux", nullptr, nullptr};
    ASSERT_EQ(Platform::SelectHost(real, RecordingCreator()), "");
    EXPECT_FALSE(Platform::IsSimulatedHost());
    EXPECT_EQ(Platform::HostPath("/etc/hosts"), "/etc/hosts");
}

TEST(HostPathNormalizing, Lexical) {
    const std::pair<const char*, const char*> cases[] = {
        {"/a//b/./c/../d/", "/a/b/d"}, {"/..", "/"}, {"/", "/"}, {"//x/../../y", "/y"}, {"/a/b/..", "/a"},
    };
    for (const auto& [in, out] : cases)
        EXPECT_EQ(Platform::NormalizeAbsolutePath(in), out) << in;
}

TEST_F(BackendTest, DefaultDirectory) {
    struct Case {
        const char* xdg;
        const char* home;
        std::string expected;
    };
    const Case cases[] = {
        {"/state", "/home/u", "/state/tarn/simhost"},
        {"/state/", "/home/u", "/state/tarn/simhost"},
        {"relative/state", "/home/u", "/home/u/.local/state/tarn/simhost"},
        {"", "/home/u", "/home/u/.local/state/tarn/simhost"},
        {nullptr, "/home/u", "/home/u/.local/state/tarn/simhost"},
        {nullptr, nullptr, ""},
        {nullptr, "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.xdg ? c.xdg : "(unset)") + " / " + (c.home ? c.home : "(unset)"));
        EXPECT_EQ(Platform::DefaultSimHostDir({nullptr, c.xdg, c.home}), c.expected);
    }
}

TEST_F(BackendTest, UnsetCreatesDefaultHostOnce) {
    Platform::HostEnvironment env{nullptr, tmp_.c_str(), "/nonexistent-home"};
    const std::string dir = tmp_ + "/tarn/simhost";

    ASSERT_EQ(Platform::SelectHost(env, RecordingCreator()), "");
    EXPECT_EQ(created_, std::vector<std::string>{dir});
    EXPECT_TRUE(Platform::IsSimulatedHost());
    EXPECT_EQ(Platform::HostRoot(), dir);

    Platform::UseRealHost();
    ASSERT_EQ(Platform::SelectHost(env, RecordingCreator()), "");
    EXPECT_EQ(created_.size(), 1u) << "an existing host is reused";
    EXPECT_EQ(Platform::HostRoot(), dir);
}

TEST_F(BackendTest, UnsetReportsCreationFailures) {
    Platform::HostEnvironment env{nullptr, tmp_.c_str(), nullptr};

    std::string error = Platform::SelectHost(
        env, [](const std::string&) -> void { throw std::runtime_error("unknown scenario 'default'"); });
    EXPECT_NE(error.find("unknown scenario 'default'"), std::string::npos) << error;
    EXPECT_FALSE(Platform::IsSimulatedHost());

    error = Platform::SelectHost(env, RecordingCreator(false));
    EXPECT_NE(error.find(tmp_ + "/tarn/simhost/etc/simhost/host.json"), std::string::npos) << error;
    EXPECT_FALSE(Platform::IsSimulatedHost());

    error = Platform::SelectHost({nullptr, nullptr, nullptr}, RecordingCreator());
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(Platform::IsSimulatedHost());
}
