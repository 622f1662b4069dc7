// Store access for the sim backends.
#include "platform/sim/SimState.h"

#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"

namespace Platform::Sim {

Json Load() {
    try {
        return SimHost::Load(HostRoot());
    } catch (const SimHost::StoreError& e) {
        throw HostCtl::Lib::HostCtlException(e.what());
    }
}

Json Change(const std::function<void(Json&)>& change) {
    try {
        return SimHost::Transact(HostRoot(), change);
    } catch (const SimHost::StoreError& e) {
        throw HostCtl::Lib::HostCtlException(e.what());
    } catch (const nlohmann::json::exception& e) {
        throw HostCtl::Lib::HostCtlException(std::string("simulated host: ") + e.what());
    }
}

const Json& At(const Json& state, const char* pointer) {
    Json::json_pointer ptr(pointer);
    if (!state.contains(ptr))
        throw HostCtl::Lib::HostCtlException(std::string("simulated host: missing ") + pointer);
    return state.at(ptr);
}

} // namespace Platform::Sim
