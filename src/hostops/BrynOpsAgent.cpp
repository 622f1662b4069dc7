// bryn-opsagent init-script operations, version test and switch migration.
#include "hostops/BrynOpsAgent.h"

#include "core/Log.h"
#include "hostops/CommandRunner.h"
#include "platform/HostRoot.h"

namespace Tarn {
namespace {

std::string InitScriptLine(const char* action) {
    return Platform::HostPath("/etc/init.d/bryn-opsagent") + " " + action;
}

} // namespace

std::string BrynOpsAgentVersionTestLine() {
    return "let v=`" + Platform::HostPath("/bin/corlacli") +
           " --formatter=keyvalue software vib get -n bryn-opsagent | awk '/Version/{ split($0, kv, \"=\"); "
           "split(kv[2], ver, \".\"); print ver[1] }'`; (exit $((v < 3)))";
}

void BrynOpsAgentStop(bool& wasStopped) {
    Log(LOG_INFO, "Stopping bryn-opsagent.");
    wasStopped = RunShellCommand(InitScriptLine("stop")) == 0;
    if (wasStopped)
        Log(LOG_INFO, "bryn-opsagent has been successfully stopped.");
    else
        Log(LOG_ERR, "Failed to stop bryn-opsagent.");
}

void BrynOpsAgentStart(bool wasStopped) {
    if (!wasStopped) {
        Log(LOG_INFO, "Skipping bryn-opsagent start.");
        return;
    }
    Log(LOG_INFO, "Starting bryn-opsagent.");
    if (RunShellCommand(InitScriptLine("start")) != 0)
        Log(LOG_ERR, "Failed to start bryn-opsagent.");
    else
        Log(LOG_INFO, "bryn-opsagent has been successfully started.");
}

bool BrynOpsAgentPresent() {
    std::string line = InitScriptLine("status");
    Log(LOG_INFO, "Running: %s", line.c_str());
    int rc = RunShellCommand(line);
    Log(LOG_INFO, "bryn-opsagent is %spresent on the system.", rc != 0 ? "not " : "");
    return rc == 0;
}

bool BrynOpsAgentIsV3() {
    std::string line = BrynOpsAgentVersionTestLine();
    Log(LOG_INFO, "Running: %s", line.c_str());
    if (RunShellCommand(line) != 0)
        return false;
    Log(LOG_INFO, "bryn-opsagent version >= 3 detected");
    return true;
}

bool BrynOpsAgentActive() {
    return BrynOpsAgentPresent() && BrynOpsAgentIsV3();
}

bool BrynMigrateSwitch(const std::string& a, const std::string& b) {
    std::string path = Platform::HostPath("/usr/lib64/orvane/bryn-opsagent/bin/bryncfg-kswitch");
    const char* argv[] = {path.c_str(), "-m", "-p", a.c_str(), "-I", b.c_str(), nullptr};
    return RunLoggedCommand(path.c_str(), argv) == 0;
}

} // namespace Tarn
