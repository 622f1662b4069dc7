// The live-core thread. It shares nothing with the user-interface thread: it reads constants and calls the
// host-control library and the logger, both safe from a second thread.
#include "hostops/LiveCore.h"

#include "core/Log.h"
#include "platform/HostCtlException.h"
#include "platform/SystemInfo.h"
#include "platform/TesCtlExec.h"

#include <cstring>
#include <system_error>
#include <thread>

namespace Tarn {

void TakeLiveCore() {
    try {
        Log(LOG_INFO, "Executing tesbacktrace -c against stewd");
        int status = TesCtl::Util::TesCtl_Exec(
            "/sbin/tesbacktrace -w -n stewd -o stewd-restart% -d /var/log/", 0, 1, 0);
        if (status == 0)
            TesCtl::System::SystemInfoImpl().SetSystemAlert("Stewd core dump completed");
        else
            Log(LOG_ERR, "tesbacktrace failed, probably stewd was down");
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
}

bool StartLiveCoreThread() {
    try {
        std::thread(TakeLiveCore).detach();
        return true;
    } catch (const std::system_error& e) {
        char buffer[128];
        Log(LOG_ERR, "Failed to create live core generation thread: %s",
            strerror_r(e.code().value(), buffer, sizeof buffer));
        return false;
    }
}

} // namespace Tarn
