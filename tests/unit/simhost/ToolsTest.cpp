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
    ProgramResult Kelp(const std::string& command, const std::string& user = "tarn") {
        return Tool("/bin/kelp-cmd -U " + user + " " + command);
    }
    int Sh(const std::string& script, const std::string& arg) {
        return RunProgram("/bin/sh", {"sh", dir_ + script, arg}).code;
    }
    Json State() { return SimHost::Load(dir_); }
    void Change(const std::function<void(Json&)>& fn) { SimHost::Transact(dir_, fn); }

    TestHost host_; // the default scenario
    std::string dir_ = host_.Root();
};

TEST_F(SimHostTools, EveryCallIsLoggedAsItsArgv) {
    Kelp("internalsvc/refresh");
    Sh("/etc/init.d/SSH", "status");
    RunProgram("/bin/sh", {"sh", "-c", dir_ + "/sbin/resetCfg.py --reset-only > /dev/null 2>&1"});
    RunProgram(dir_ + "/bin/corlacli", {"corlacli", "bogus words"});
    std::ifstream in(dir_ + "/var/log/simhost-calls.log");
    std::vector<Json> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(Json::parse(line));
    // Scripts record their host path.
    EXPECT_EQ(Json(lines), Json::parse(R"([["kelp-cmd", "-U", "tarn", "internalsvc/refresh"],
        ["/etc/init.d/SSH", "status"], ["/sbin/resetCfg.py", "--reset-only"], ["corlacli", "bogus words"]])"));
}

TEST_F(SimHostTools, KelpCmdActsOnlyAsAcceptedUsers) {
    EXPECT_EQ(Kelp("no/such/command").code, 1);
    struct Case {
        Json accepted;
        const char* user;
        int code;
    } cases[] = {
        {{"tarn"}, "root", 255}, {{"tarn"}, "tarn", 0}, {{"tarn", "root"}, "root", 0}, {{}, "tarn", 255}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.accepted.dump() + " " + c.user);
        Change([&](Json& s) {
            s["simulation"]["kelpCmdUsers"] = c.accepted;
            s["services"]["SSH"]["running"] = false;
        });
        EXPECT_EQ(Kelp("hostsvc/start_ssh", c.user).code, c.code);
        EXPECT_EQ(State()["services"]["SSH"]["running"], c.code == 0);
    }
}

TEST_F(SimHostTools, TespingAnswersOnlyForAnsweringAddresses) {
    Change([](Json& s) { s["network"]["answering"].push_back("fe80::1"); });
    const std::tuple<const char*, int, const char*> cases[] = {
        {"192.0.2.1", 0, "3 packets received"},
        {"-I tes0 fe80::1%tes0", 0, "3 packets received"},
        {"192.0.2.99", 1, "0 packets received"},
        {"-I tes7 192.0.2.1", 2, ""}}; // no such interface
    for (const auto& [args, code, summary] : cases) {
        ProgramResult r = Tool(std::string("/bin/tesping -c 3 ") + args);
        EXPECT_EQ(r.code, code) << args;
        if (*summary) {
            EXPECT_NE(r.out.find(summary), std::string::npos) << args << ": " << r.out;
        }
    }
}

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

TEST_F(SimHostTools, CorlacliChangesStandardSwitches) {
    auto corlacli = [&](const std::string& words) {
        return Tool("/bin/corlacli network kswitch standard " + words).code;
    };
    EXPECT_EQ(corlacli("uplink remove -u nicx1 -v kSwitch0"), 0);
    EXPECT_EQ(State()["standardSwitches"][0]["uplinks"], Json({"nicx0"}));
    EXPECT_EQ(State()["standardSwitches"][0]["portGroups"][0]["teaming"]["uplinkOrder"], Json({"nicx0"}));
    EXPECT_NE(corlacli("uplink remove -u nicx1 -v kSwitch0"), 0);
    EXPECT_EQ(corlacli("add -v kSwitch1"), 0);
    EXPECT_NE(corlacli("add -v kSwitch1"), 0);
    // Free, in use elsewhere, no such NIC.
    EXPECT_EQ(corlacli("uplink add -u nicx1 -v kSwitch1"), 0);
    EXPECT_NE(corlacli("uplink add -u nicx0 -v kSwitch1"), 0);
    EXPECT_NE(corlacli("uplink add -u nicx9 -v kSwitch1"), 0);
    EXPECT_EQ(State()["standardSwitches"][1]["uplinks"], Json({"nicx1"}));
    // The console's version test takes the major number from the "Version" key=value line.
    std::string line = dir_ +
                       "/bin/corlacli --formatter=keyvalue software vib get -n bryn-opsagent | "
                       "awk '/Version/{ split($0, kv, \"=\"); split(kv[2], ver, \".\"); print ver[1] }'";
    EXPECT_EQ(RunProgram("/bin/sh", {"sh", "-c", "PATH=/usr/bin:/bin; " + line}).out, "8\n");
}

TEST_F(SimHostTools, ScriptsAndInjectedFailures) {
    EXPECT_EQ(Sh("/etc/init.d/CorlaShell", "status"), 3); // not running
    EXPECT_EQ(Sh("/etc/init.d/CorlaShell", "start"), 0);
    EXPECT_EQ(Sh("/etc/init.d/CorlaShell", "status"), 0);
    EXPECT_EQ(Sh("/sbin/svcctl.sh", "stop"), 0);
    EXPECT_EQ(State()["services"]["stewd"]["running"], false);

    Change([](Json& s) {
        s["vms"][0]["running"] = true;
        s["simulation"]["failing"] = {"haltGuests", "kelp-cmd hostsvc/start_ssh"};
    });
    EXPECT_EQ(Tool("/sbin/haltGuests").code, 1);
    EXPECT_EQ(State()["vms"][0]["running"], true);
    EXPECT_EQ(Kelp("hostsvc/start_ssh").code, 1);
    EXPECT_EQ(Kelp("hostsvc/stop_ssh").code, 0); // only the named command fails

    Change([](Json& s) { s["simulation"]["failing"] = Json::array(); });
    EXPECT_EQ(Tool("/bin/haltGuests --terminate").code, 0);
    EXPECT_EQ(State()["vms"][0]["lastStop"], "terminate");
}

TEST_F(SimHostTools, AdvancedOptionsThroughEitherConfigurationTool) {
    const std::string set = " system settings advanced set -o /UserVars/CorlaShellTimeOut -i ";
    EXPECT_EQ(Tool("/sbin/corlacli" + set + "900").code, 0);
    EXPECT_EQ(Tool("/sbin/corlacfg-advcfg -q -g /UserVars/CorlaShellTimeOut").out, "900\n");
    // The fallback tool keeps working when corlacli is made to fail.
    Change([](Json& s) { s["simulation"]["failing"] = {"corlacli system settings advanced set"}; });
    EXPECT_EQ(Tool("/sbin/corlacli" + set + "60").code, 1);
    EXPECT_EQ(Tool("/sbin/nearcli" + set + "60").code, 0);
    EXPECT_EQ(Tool("/sbin/corlacfg-advcfg -q -g /UserVars/CorlaShellTimeOut").out, "60\n");
    EXPECT_EQ(Tool("/sbin/corlacfg-advcfg -q -g /UserVars/NoSuchOption").code, 1);
}

TEST_F(SimHostTools, LiveCoreOnlyOfARunningAgent) {
    ProgramResult taken = Tool("/sbin/tesbacktrace -w -n stewd -o stewd-restart% -d /var/log/");
    EXPECT_EQ(taken.code, 0);
    std::vector<fs::path> cores;
    for (const auto& entry : fs::directory_iterator(dir_ + "/var/log"))
        if (entry.path().extension() == ".core")
            cores.push_back(entry.path().filename());
    ASSERT_EQ(cores.size(), 1u);
    EXPECT_EQ(cores[0].string().rfind("stewd-restart", 0), 0u) << cores[0];

    // The folder as the console passes it, already inside the host.
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o mapped -d " + dir_ + "/var/log/").code, 0);
    EXPECT_TRUE(fs::exists(dir_ + "/var/log/mapped.core"));

    EXPECT_EQ(Sh("/sbin/svcctl.sh", "stop"), 0);
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o stewd-restart% -d /var/log/").code, 1);
    EXPECT_EQ(Sh("/sbin/svcctl.sh", "start"), 0);
    EXPECT_EQ(State()["services"]["plexa"]["running"], true);
    EXPECT_EQ(Tool("/sbin/tesbacktrace -w -n stewd -o x -d /../../tmp/").code, 1); // stays inside the host
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
