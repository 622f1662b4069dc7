// Simulated host: hardware identity, CPU and memory, smart-card slots and running virtual machines, read
// from host.json.
#include "platform/HostCtlException.h"
#include "platform/sim/SimHostAreas.h"
#include "simhost/model/JsonNumber.h"

namespace Platform::Sim {
namespace {

class SimHardware : public HardwareBackend {
public:
    PlatformIdentity Identity() override {
        return ReadState([](const Json& s) {
            return PlatformIdentity{At(s, "/hardware/vendor").get<std::string>(),
                                    At(s, "/hardware/product").get<std::string>()};
        });
    }

    CpuFacts Cpu() override {
        return ReadState([](const Json& s) {
            return CpuFacts{SimHost::WholeNumber<int>(At(s, "/hardware/cpu/packages"), "packages"),
                            At(s, "/hardware/cpu/model").get<std::string>()};
        });
    }

    MemoryFacts Memory() override {
        return ReadState([](const Json& s) {
            return MemoryFacts{
                SimHost::WholeNumber<uint64_t>(At(s, "/hardware/memory/totalPages"), "totalPages"),
                SimHost::WholeNumber<uint64_t>(At(s, "/hardware/memory/pageSize"), "pageSize")};
        });
    }
};

class SimSmartCards : public SmartCardBackend {
public:
    std::vector<SmartCardSlotState> Slots() override {
        return ReadState([](const Json& s) {
            std::vector<SmartCardSlotState> out;
            for (const Json& slot : At(s, "/smartCards/slots")) {
                SmartCardSlotState state;
                state.id = SimHost::WholeNumber<int>(slot.at("slot"), "slot");
                const Json& token = slot.value("token", Json());
                if (!token.is_null())
                    state.tokenUser = token.at("userId").get<std::string>();
                out.push_back(std::move(state));
            }
            return out;
        });
    }
};

class SimResources : public ResourceBackend {
public:
    bool HasRunningVirtualMachines() override {
        return ReadState([](const Json& s) {
            for (const Json& vm : At(s, "/vms"))
                if (vm.value("running", false))
                    return true;
            return false;
        });
    }
};

} // namespace

HardwareBackend& HardwareArea() {
    static SimHardware area;
    return area;
}

SmartCardBackend& SmartCardArea() {
    static SimSmartCards area;
    return area;
}

ResourceBackend& ResourceArea() {
    static SimResources area;
    return area;
}

} // namespace Platform::Sim
