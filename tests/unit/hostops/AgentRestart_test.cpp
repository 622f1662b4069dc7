// Agent restart (with and without the live core) and the configuration reset on the simulated host.
#include "support/ActiveTestHost.h"

#include <gtest/gtest.h>

#include "hostops/AgentRestart.h"
#include "hostops/LiveCore.h"
#include "hostops/SystemReset.h"
#include "hostops/TarnTimeout.h"

#include <chrono>
#include <thread>

namespace {

using Strings = std::vector<std::string>;

const Tarn::AgentRestartTexts kTexts = {"Collecting.", "Stopping.", "Starting.", "Done."};

class AgentRestart : public ::testing::Test {
protected:
    using Json = TestHost::Json;
    ActiveTestHost host_;

    Strings Restart(bool collect) {
        Strings shown;
        Tarn::RestartAgents(collect, kTexts, [&](const std::string& text) { shown.push_back(text); });
        return shown;
    }
    // The live-core thread is not waited for by the restart; the test waits for its last trace so that it
    // has ended before the host goes away.
    bool WaitFor(const std::function<bool()>& done) {
        for (int i = 0; i < 500; ++i) {
            if (done())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }
    static bool Has(const Strings& calls, const std::string& prefix) {
        for (const auto& c : calls)
            if (c.rfind(prefix, 0) == 0)
                return true;
        return false;
    }
};

TEST_F(AgentRestart, ProgressAndCommandsWithoutTheLiveCore) {
    host_.ChangeState([](Json& s) { s["simulation"]["failing"] = {"svcctl.sh stop"}; });
    EXPECT_EQ(Restart(false),
              (Strings{"{color:dark-grey}{/color}{color:black}Stopping.{/color}",
                       "{color:dark-grey}Stopping. Done.\n{/color}{color:black}Starting.{/color}",
                       "{color:dark-grey}Stopping. Done.\nStarting. Done.{/color}"}));
    EXPECT_EQ(host_.NewToolCalls(), (Strings{"/sbin/svcctl.sh stop", "/sbin/svcctl.sh start"}));
    EXPECT_TRUE(host_.Logged("Restarting host agents"));
    EXPECT_EQ(host_.Lines("var/log/obed.log"),
              Strings{"@&!*@*@(obe.user.tarn.restarting.hostagents)Restarting host agents"});
}

TEST_F(AgentRestart, LiveCoreStartedFirstAndNotWaitedFor) {
    Strings shown = Restart(true);
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_EQ(shown.back(), "{color:dark-grey}Collecting. Done.\nStopping. Done.\nStarting. Done.{/color}");
    EXPECT_TRUE(WaitFor([&] {
        // The user-interface thread keeps reading the host through the platform meanwhile.
        EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
        return !host_.State()["system"]["alerts"].empty() ||
               host_.Logged("tesbacktrace failed, probably stewd was down");
    }));
    Strings calls = host_.NewToolCalls();
    EXPECT_TRUE(Has(calls, host_.Root() + "/sbin/tesbacktrace -w -n stewd -o stewd-restart% -d " +
                               host_.Root() + "/var/log/"));
    EXPECT_TRUE(host_.Logged("Executing tesbacktrace -c against stewd"));
    // The core races the agents' stop: either it was written and announced, or the failure is logged.
    bool written = false;
    for (const auto& entry : std::filesystem::directory_iterator(host_.Root() + "/var/log"))
        written |= entry.path().extension() == ".core";
    if (written)
        EXPECT_EQ(host_.State()["system"]["alerts"], Json::array({"Stewd core dump completed"}));
    else
        EXPECT_TRUE(host_.Logged("tesbacktrace failed, probably stewd was down"));
}

TEST_F(AgentRestart, LiveCoreOfAStoppedAgentFails) {
    host_.ChangeState([](Json& s) { s["services"]["stewd"]["running"] = false; });
    Tarn::TakeLiveCore(); // on this thread: nothing to wait for
    EXPECT_TRUE(host_.Logged("tesbacktrace failed, probably stewd was down"));
    EXPECT_TRUE(host_.State()["system"]["alerts"].empty());
}

TEST_F(AgentRestart, ResetRunsTheToolAndRebootsOnlyWhenAsked) {
    Tarn::ReportSystemReset();
    EXPECT_TRUE(host_.Logged("Restoring factory defaults"));
    EXPECT_EQ(host_.Lines("var/log/obed.log"),
              Strings{"@&!*@*@(obe.user.tarn.restore.factory.defaults)Restoring factory defaults"});

    host_.ChangeState([](Json& s) { s["simulation"]["failing"] = {"resetCfg.py"}; });
    EXPECT_FALSE(Tarn::RunSystemReset());
    host_.ChangeState([](Json& s) {
        s["simulation"]["failing"] = Json::array();
        s["services"]["SSH"]["running"] = true;
    });
    EXPECT_TRUE(Tarn::RunSystemReset());
    EXPECT_EQ(host_.State()["services"]["SSH"]["running"], false);
    EXPECT_EQ(host_.State()["power"]["state"], "on");
    EXPECT_TRUE(Tarn::RestartHostForced());
    EXPECT_EQ(host_.State()["power"]["state"], "rebooting");
    EXPECT_EQ(host_.NewToolCalls(),
              (Strings{"/sbin/resetCfg.py --reset-only", "/sbin/resetCfg.py --reset-only",
                       host_.Root() + "/sbin/reboot -f"}));
}

} // namespace
