// The console itself on the real-host backend, inside the "bridge" namespace scene: the welcome screen
// shows the scene's host name, management address and its origin.
#include "harness/Console.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(RealHostConsole, WelcomeShowsTheManagementAddressOfTheScene) {
    if (const char* scene = std::getenv("TARN_NETNS_SCENE"); !scene || std::string(scene) != "bridge")
        GTEST_SKIP() << "runs in the namespace scene \"bridge\" only (tests/netns/launch.sh)";
    e2e::Console c({.env = {{"TARN_HOST", "linux"}}});
    ASSERT_TRUE(c->WaitForTextSettled("<F12>", std::chrono::milliseconds(50))) << c->View().Text();
    const std::string screen = c->View().Text();
    EXPECT_NE(screen.find("https://host01/"), std::string::npos) << screen;
    EXPECT_NE(screen.find("https://192.0.2.10/ (STATIC)"), std::string::npos) << screen;
    EXPECT_EQ(screen.find("0.0.0.0"), std::string::npos) << screen;
}

} // namespace
