// Test steps on detached workers.
#include "network/TestStep.h"

#include "network/HostnameCheck.h"
#include "network/TestTargets.h"
#include "platform/HostCtlException.h"
#include "platform/TesCtlExec.h"

#include <thread>

namespace Tarn {

std::shared_ptr<TestStep> TestStep::Start(std::function<bool()> work) {
    auto step = std::make_shared<TestStep>();
    std::thread([step, work = std::move(work)] {
        bool ok = false;
        try {
            ok = work();
        } catch (...) {
            ok = false; // nothing may leave a detached thread
        }
        step->state_.store(ok ? kSucceeded : kFailed, std::memory_order_release);
    }).detach();
    return step;
}

std::shared_ptr<TestStep> TestStep::StartPing(const std::string& address, const std::string& interfaceName) {
    return Start([address, interfaceName] { return RunPing(address, interfaceName); });
}

std::shared_ptr<TestStep> TestStep::StartResolve(const std::string& hostname) {
    return Start([hostname] { return ResolveThroughNameServers(hostname); });
}

bool RunPing(const std::string& address, const std::string& interfaceName) {
    try {
        return TesCtl::Util::TesCtl_Exec(PingCommandLine(address, interfaceName), false, true, false) == 0;
    } catch (const HostCtl::Lib::HostCtlException&) {
        return false;
    }
}

} // namespace Tarn
