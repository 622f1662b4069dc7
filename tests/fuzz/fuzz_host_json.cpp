// The console's readers of host.json: any document, however malformed, gives records or a HostCtlException,
// never another exception or a crash.
#include "platform/HostCtlException.h"
#include "platform/sim/SimNetworkJson.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto state = Platform::Sim::Json::parse(data, data + size, nullptr, false);
    if (state.is_discarded())
        return 0;
    try {
        Platform::Sim::NetworkFromJson(state);
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
    try {
        Platform::Sim::DnsFromJson(state);
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
    try {
        Platform::Sim::RoutesFromJson(state);
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
    try {
        Platform::Sim::IpConfigFromJson(state);
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
    return 0;
}
