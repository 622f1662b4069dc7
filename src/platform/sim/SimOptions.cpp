// Simulated host: advanced options ("advancedOptions": path -> {type, value}) and user advanced options
// ("userOptions", same shape) in host.json.
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/sim/SimHostAreas.h"
#include "simhost/model/JsonNumber.h"

namespace Platform::Sim {
namespace {

using HostCtl::Lib::HostCtlException;

OptionValue ToValue(const std::string& path, const Json& option) {
    std::string type = option.at("type").get<std::string>();
    const Json& value = option.at("value");
    if (type == "int")
        return SimHost::WholeNumber<int64_t>(value, path);
    if (type == "string")
        return value.get<std::string>();
    if (type == "bool")
        return value.get<bool>();
    throw HostCtlException(SimHost::InvalidState(
        Platform::HostRoot(), "advanced option " + path + " has unknown type '" + type + "'"));
}

class SimOptions : public OptionBackend {
public:
    std::optional<OptionValue> Find(const std::string& path) override {
        return ReadState([&](const Json& s) -> std::optional<OptionValue> {
            const Json& options = At(s, "/advancedOptions");
            auto it = options.find(path);
            if (it == options.end())
                return std::nullopt;
            return ToValue(path, *it);
        });
    }

    void SetInteger(const std::string& path, int64_t value) override {
        Change([&](Json& s) {
            Json& options = s.at("advancedOptions");
            auto it = options.find(path);
            if (it == options.end())
                throw HostCtlException("no advanced option " + path);
            if (it->at("type") != "int")
                throw HostCtlException("advanced option " + path + " is not an integer option");
            (*it)["value"] = value;
        });
    }

    // The PXE boot flag is kept under "system" in host.json; it is the user option PXEBootEnabled.
    bool HasUserOption(const std::string& name) override {
        return ReadState([&](const Json& s) {
            if (At(s, "/userOptions").contains(name))
                return true;
            return name == "PXEBootEnabled" && s.at("system").value("pxeBootEnabled", false);
        });
    }
};

} // namespace

OptionBackend& OptionArea() {
    static SimOptions area;
    return area;
}

} // namespace Platform::Sim
