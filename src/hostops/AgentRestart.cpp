// The management agents' restart sequence.
#include "hostops/AgentRestart.h"

#include "core/Log.h"
#include "core/Report.h"
#include "hostops/LiveCore.h"
#include "platform/HostCtlException.h"
#include "platform/TesCtlExec.h"

namespace Tarn {

std::string RestartProgress::Running(const std::string& step) const {
    return text_ + "{/color}{color:black}" + step + "{/color}";
}

void RestartProgress::Finished(const std::string& step) {
    text_ += step + " " + done_ + "\n";
}

void RestartProgress::FinishedLast(const std::string& step) {
    text_ += step + " " + done_ + "{/color}";
}

namespace {

// What svcctl.sh answers is not checked; a command that cannot even start is worth a log line.
void RunAgentScript(const char* commandLine) {
    try {
        TesCtl::Util::TesCtl_Exec(commandLine, 0, 1, 0);
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_WARNING, "Running %s failed: %s", commandLine, e.what());
    }
}

} // namespace

void RestartAgents(bool collectLiveCore, const AgentRestartTexts& texts,
                   const std::function<void(const std::string&)>& show) {
    Log(LOG_INFO, "Restarting host agents");
    ReportEvent(kEventRestartingHostAgents);

    RestartProgress progress(texts.done);
    // The core is taken while the agents go down, so the thread starts first and is not waited for.
    if (collectLiveCore && StartLiveCoreThread())
        progress.Finished(texts.collecting);

    show(progress.Running(texts.stopping));
    RunAgentScript("/bin/sh /sbin/svcctl.sh stop");
    progress.Finished(texts.stopping);

    show(progress.Running(texts.starting));
    RunAgentScript("/bin/sh /sbin/svcctl.sh start");
    progress.FinishedLast(texts.starting);
    show(progress.Text());
}

} // namespace Tarn
