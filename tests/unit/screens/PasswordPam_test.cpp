// The console's PAM calls against a simulated host made by `simhost init`: every login outcome and the
// password change in the console's three-prompt order.
#include "platform/HostRoot.h"
#include "screens/Pam.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <security/pam_appl.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace Tarn {
namespace {

std::string BuildDir() {
    if (const char* dir = std::getenv("TARN_BUILD_DIR"); dir != nullptr && *dir != '\0')
        return dir;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

class PamTest : public ::testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/tarn-pam-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir_ = pattern;
        const std::string init = BuildDir() + "/simhost init " + dir_ + "/host --scenario default >/dev/null";
        ASSERT_EQ(std::system(init.c_str()), 0) << init;
        dir_ += "/host";
        ASSERT_TRUE(std::filesystem::exists(dir_ + "/lib/security/pam_simhost.so"))
            << "the simulated host's PAM module was not built";
        Platform::UseSimulatedHost(dir_);
    }
    void TearDown() override {
        Platform::UseRealHost();
        std::filesystem::remove_all(std::filesystem::path(dir_).parent_path());
    }

    nlohmann::json User(const std::string& name) const {
        std::ifstream in(dir_ + "/etc/simhost/host.json");
        nlohmann::json host = nlohmann::json::parse(in);
        for (const auto& user : host["users"])
            if (user["name"] == name)
                return user;
        return nullptr;
    }

    std::string dir_;
};

TEST_F(PamTest, LoginOutcomes) {
    EXPECT_EQ(Authenticate("root", ""), PAM_SUCCESS);
    EXPECT_EQ(Authenticate("root", "wrong"), PAM_AUTH_ERR);
    EXPECT_EQ(Authenticate("nobody", ""), PAM_AUTH_ERR);
    EXPECT_EQ(Authenticate("expired", "Expired#1"), PAM_NEW_AUTHTOK_REQD);
    EXPECT_EQ(Authenticate("guest", "Guest#123"), PAM_PERM_DENIED);
    // The account check only follows a good password.
    EXPECT_EQ(Authenticate("guest", "nope"), PAM_AUTH_ERR);
}

TEST_F(PamTest, LoginWithoutServiceFileFails) {
    std::filesystem::remove(dir_ + "/etc/pam.d/tarn");
    EXPECT_NE(Authenticate("root", ""), PAM_SUCCESS);
}

TEST_F(PamTest, ExpiredPasswordChangeClearsTheFlag) {
    ASSERT_TRUE(ChangePasswordThroughPam("expired", "Expired#1", "Fresh#2024"));
    EXPECT_EQ(User("expired")["expired"], false);
    EXPECT_EQ(Authenticate("expired", "Fresh#2024"), PAM_SUCCESS);
    EXPECT_EQ(Authenticate("expired", "Expired#1"), PAM_AUTH_ERR);
}

TEST_F(PamTest, ChangeRefusals) {
    // Wrong old password, a new one below the complexity rule: nothing changes.
    EXPECT_FALSE(ChangePasswordThroughPam("root", "wrong", "Fresh#2024"));
    EXPECT_FALSE(ChangePasswordThroughPam("root", "", "simple"));
    EXPECT_EQ(User("root")["password"], "");
    EXPECT_EQ(Authenticate("root", ""), PAM_SUCCESS);
    // A user without permission cannot pass the account check.
    EXPECT_FALSE(ChangePasswordThroughPam("guest", "Guest#123", "Fresh#2024"));
    EXPECT_EQ(Authenticate("guest", "Guest#123"), PAM_PERM_DENIED);
}

TEST_F(PamTest, RootChangesFromTheEmptyPassword) {
    ASSERT_TRUE(ChangePasswordThroughPam("root", "", "Root#Pass1"));
    EXPECT_EQ(Authenticate("root", ""), PAM_AUTH_ERR);
    EXPECT_EQ(Authenticate("root", "Root#Pass1"), PAM_SUCCESS);
}

} // namespace
} // namespace Tarn
