// Host selection from TARN_HOST, with the environment and the creation of the default host passed in, so
// that nothing is written outside a temporary directory.
#include "platform/Backend.h"
#include "platform/HostRoot.h"
#include "support/TestHost.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include <stdexcept>

namespace fs = std::filesystem;

class BackendTest : public ::testing::Test {
protected:
    void SetUp() override { Platform::UseRealHost(); } // the directory is only a place to create hosts in

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

    TestHost dir_{TestHost::Layout::Empty};
    const std::string tmp_ = dir_.Root();
    std::vector<std::string> created_;
};

TEST_F(BackendTest, ExplicitValues) {
    fs::create_directories(tmp_ + "/a/etc/simhost"); // a usable host
    std::ofstream(tmp_ + "/a/etc/simhost/host.json") << "{}";
    fs::create_directories(tmp_ + "/empty");
    const std::string missing = tmp_ + "/empty";
    const fs::path cwd = fs::current_path();
    fs::current_path(tmp_);
    const std::tuple<std::string, bool, bool, std::string> cases[] = {
        // value, ok, simulated, root
        {"sim:" + tmp_ + "/a/", true, true, tmp_ + "/a"},
        {"sim:./x/../a", true, true, tmp_ + "/a"},
        {"linux", true, false, "/"},
        {"sim:", false, false, "/"},
        {"sim:" + missing, false, false, "/"},
        {"sim:/nonexistent", false, false, "/"},
        {"", false, false, "/"},
        {"Linux", false, false, "/"},
        {"linux ", false, false, "/"},
        {"simulated:/x", false, false, "/"}};
    for (const auto& [value, ok, simulated, root] : cases) {
        SCOPED_TRACE("TARN_HOST=\"" + value + "\"");
        Platform::UseRealHost();
        std::string error =
            Platform::SelectHost({value.c_str(), tmp_.c_str(), tmp_.c_str()}, RecordingCreator());
        EXPECT_EQ(error.empty(), ok) << error;
        EXPECT_EQ(Platform::IsSimulatedHost(), simulated);
        EXPECT_EQ(Platform::HostRoot(), root);
    }
    fs::current_path(cwd);
    EXPECT_TRUE(created_.empty()) << "an explicit TARN_HOST never creates a host";
    // A host that is not there is named, with the way to make one.
    std::string error =
        Platform::SelectHost({("sim:" + missing).c_str(), nullptr, nullptr}, RecordingCreator());
    EXPECT_NE(error.find(missing + "/etc/simhost/host.json"), std::string::npos) << error;
    EXPECT_NE(error.find("simhost init"), std::string::npos) << error;

    // "linux" after a simulated host switches back.
    ASSERT_EQ(Platform::SelectHost({("sim:" + tmp_ + "/a").c_str(), nullptr, nullptr}, RecordingCreator()),
              "");
    ASSERT_EQ(Platform::SelectHost({"linux", nullptr, nullptr}, RecordingCreator()), "");
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
    const std::string local = "/home/u/.local/state/tarn/simhost";
    const std::tuple<const char*, const char*, std::string> cases[] = {
        // XDG_STATE_HOME, HOME, expected
        {"/state/", "/home/u", "/state/tarn/simhost"},
        {"relative/state", "/home/u", local},
        {"", "/home/u", local},
        {nullptr, "/home/u", local},
        {nullptr, nullptr, ""},
        {nullptr, "", ""}};
    for (const auto& [xdg, home, expected] : cases)
        EXPECT_EQ(Platform::DefaultSimHostDir({nullptr, xdg, home}), expected)
            << (xdg ? xdg : "(unset)") << " / " << (home ? home : "(unset)");
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
