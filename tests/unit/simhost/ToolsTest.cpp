// The simulated host's tools against a temporary host: what they record, answer and change.
#include "simhost/model/Init.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;
using SimHost::Json;

namespace {

class SimHostTools : public ::testing::Test {
protected:
    // Runs "HOSTPATH ARGS..." with the program's file name as element 0, as the console does.
    ProgramResult Tool(const std::string& line) {
        std::istringstream in(line);
        std::string path;
        in >> path;
        std::vector<std::string> argv{fs::path(path).filename()};
        for (std::string word; in >> word;)
            argv.push_back(word);
        return RunProgram(dir_ + path, argv);
    }
    int Sh(const std::string& script, const std::string& arg) {
        return RunProgram("/bin/sh", {"sh", dir_ + script, arg}).code;
    }
    Json State() { return SimHost::Load(dir_); }
    void Change(const std::function<void(Json&)>& fn) { SimHost::Transact(dir_, fn); }

    TestHost host_; // the default scenario
    std::string dir_ = host_.Root();
};

// A process named `name` whose pid sits in tarn.pid.
pid_t StartSleeper(const std::string& dir, const std::string& name) {
    std::string path = dir + "/" + name;
    fs::copy_file("/bin/sleep", path, fs::copy_options::overwrite_existing);
    pid_t pid = fork();
    if (pid == 0) {
        execl(path.c_str(), name.c_str(), "30", static_cast<char*>(nullptr));
        _exit(127);
    }
    std::ofstream(dir + "/var/run/tarn.pid") << pid << "\n";
    // Wait until the exec has replaced the forked copy's command line.
    for (int i = 0; i < 200 && fs::read_symlink("/proc/" + std::to_string(pid) + "/exe").filename() != name;
         ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return pid;
}

// The signal that ended `pid` within `waitMs`, or 0 if it is still running (then it is killed).
int EndingSignal(pid_t pid, int waitMs) {
    int status = 0;
    for (int i = 0; i < waitMs / 10; ++i) {
        if (waitpid(pid, &status, WNOHANG) == pid)
            return WIFSIGNALED(status) ? WTERMSIG(status) : -1;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    kill(pid, SIGKILL);
    waitpid(pid, &status, 0);
    return 0;
}

TEST_F(SimHostTools, PowerCommandsMarkStateAndEndOnlyTheConsole) {
    pid_t foreign = StartSleeper(dir_, "not-tarn");
    Change([](Json& s) { s["ipv6"] = {{"enabled", true}, {"pendingEnabled", false}}; });
    EXPECT_EQ(Tool("/sbin/reboot -f").code, 0);
    // The host comes back with the IPv6 state chosen for the next boot.
    EXPECT_EQ(State()["ipv6"], Json::parse(R"({"enabled": false, "pendingEnabled": false})"));
    EXPECT_EQ(EndingSignal(foreign, 300), 0) << "a foreign process was signalled";
    EXPECT_EQ(State()["power"]["state"], "rebooting");
    EXPECT_EQ(State()["power"]["history"].back()["action"], "reboot");
    EXPECT_EQ(State()["power"]["history"].back()["force"], true);

    pid_t console = StartSleeper(dir_, "tarn");
    EXPECT_EQ(Tool("/sbin/poweroff").code, 0);
    EXPECT_EQ(EndingSignal(console, 3000), SIGTERM);
    EXPECT_EQ(State()["power"]["state"], "off");
    EXPECT_EQ(RunProgram(BuildDir() + "/simhost", {"simhost", "power-on", dir_}).code, 0);
    EXPECT_EQ(State()["power"]["state"], "on");
}

TEST_F(SimHostTools, LiveCoreOnlyOfARunningAgentAndInsideTheHost) {
    // The folder as the console passes it, already inside the host.
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o mapped -d " + dir_ + "/var/log/").code, 0);
    EXPECT_TRUE(fs::exists(dir_ + "/var/log/mapped.core"));
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o x -d /../../tmp/").code, 1);
    EXPECT_FALSE(fs::exists("/tmp/x.core"));
    EXPECT_EQ(Sh("/sbin/svcctl.sh", "stop"), 0);
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o stopped -d /var/log/").code, 1);
}

TEST_F(SimHostTools, CountsAreWholeNumbersAPersonWouldType) {
    // A ping count in the millions once held a fuzzing run for minutes, printing replies; a port count that
    // was not a number ended as "unexpected state". An empty -P takes the default.
    const struct {
        const char* count;
        int ping, ports;
    } cases[] = {{"3", 0, 0}, {"1000", 0, 0}, {"1001", 2, 0}, {"4097", 2, 1}, {"48809758", 2, 1},
                 {"0", 2, 1}, {"-5", 2, 1},   {"3x", 2, 1},   {"", 2, 0},     {"+3", 2, 1}};
    for (const auto& c : cases) {
        ProgramResult r = RunProgram(dir_ + "/bin/tesping", {"tesping", "-c", c.count, "192.0.2.1"});
        EXPECT_EQ(r.code, c.ping) << "count '" << c.count << "': " << r.err;
        const std::string name = "sw" + std::to_string(&c - cases);
        r = RunProgram(dir_ + "/bin/corlacli",
                       {"corlacli", "network", "kswitch", "standard", "add", "-v", name, "-P", c.count});
        EXPECT_EQ(r.code, c.ports) << "ports '" << c.count << "': " << r.out;
        EXPECT_EQ(r.out.find("Invalid number of ports") != std::string::npos, c.ports != 0) << r.out;
    }
}

TEST_F(SimHostTools, ResetRestoresConfigurationButNotTheMachine) {
    Change([](Json& s) {
        s["services"]["SSH"] = {{"running", true}, {"enabled", true}};
        s["firewall"]["rulesets"][0]["enabled"] = false;
        s["advancedOptions"]["/UserVars/TarnTimeOut"]["value"] = 60;
        s["users"][0]["password"] = "Changed#1";
        s["hardware"]["vendor"] = "Other Vendor";
        s["smartCards"]["slots"][0]["token"] = {{"userId", "jdoe@EXAMPLE"}};
        s["keyboard"]["offerChoice"] = true;
        s["keyboard"]["current"] = "Belgian";
    });
    const Json before = State();
    EXPECT_EQ(
        RunProgram("/bin/sh", {"sh", "-c", dir_ + "/sbin/resetCfg.py --reset-only > /dev/null 2>&1"}).code,
        0);
    const Json after = State(), defaults = SimHost::ScenarioState("default");
    for (const char* reset :
         {"/services", "/firewall", "/advancedOptions", "/users", "/keyboard/current", "/dns"})
        EXPECT_EQ(after[Json::json_pointer(reset)], defaults[Json::json_pointer(reset)]) << reset;
    for (const char* kept : {"/hardware", "/smartCards", "/keyboard/offerChoice", "/pnics", "/simulation"})
        EXPECT_EQ(after[Json::json_pointer(kept)], before[Json::json_pointer(kept)]) << kept;
    EXPECT_EQ(after["system"]["resets"], 1);

    Change([](Json& s) { s["simulation"]["failing"] = {"resetCfg.py"}; });
    EXPECT_NE(Sh("/sbin/resetCfg.py", "--reset-only"), 0);
    EXPECT_EQ(State()["system"]["resets"], 1);
}

} // namespace
