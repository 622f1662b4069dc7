// Kernel sysinfo reads, answered by the active system backend.
#include "platform/SysInfo.h"

#include "platform/HostBackends.h"
#include "platform/HostCtlException.h"

namespace Platform {

SystemVersion ReadSystemVersion() {
    return ActiveSystemBackend().Version();
}

bool ReadBootOption(std::array<uint8_t, 4>& out) {
    try {
        out = ActiveSystemBackend().BootOption();
        return true;
    } catch (const HostCtl::Lib::HostCtlException&) {
        return false;
    }
}

} // namespace Platform
