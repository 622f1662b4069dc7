// Simulated host: product version, boot options, welcome message, alerts, keyboard layouts and firewall
// rulesets, all kept in host.json.
#include "platform/HostCtlException.h"
#include "platform/sim/SimHostAreas.h"

#include <algorithm>

namespace Platform::Sim {
namespace {

using HostCtl::Lib::HostCtlException;

void RequireKnownLayout(const Json& state, const std::string& layout) {
    const Json& layouts = At(state, "/keyboard/layouts");
    if (std::find(layouts.begin(), layouts.end(), layout) == layouts.end())
        throw HostCtlException("unknown keyboard layout '" + layout + "'");
}

class SimSystem : public SystemBackend {
public:
    SystemVersion Version() override {
        return ReadState([](const Json& s) {
            return SystemVersion{At(s, "/system/productName").get<std::string>(),
                                 At(s, "/system/productVersion").get<std::string>(),
                                 At(s, "/system/kernelVersion").get<std::string>(),
                                 At(s, "/system/build").get<std::string>()};
        });
    }

    std::array<uint8_t, 4> BootOption() override {
        bool audit =
            ReadState([](const Json& s) { return At(s, "/system/bootOptions/auditMode").get<bool>(); });
        return {static_cast<uint8_t>(audit ? 1 : 0), 0, 0, 0};
    }

    std::string WelcomeMessage() override {
        return ReadState([](const Json& s) { return At(s, "/system/welcomeMessage").get<std::string>(); });
    }

    void RaiseAlert(const std::string& text) override {
        Change([&](Json& s) {
            Json& alerts = s["system"]["alerts"];
            if (alerts.is_null())
                alerts = Json::array();
            alerts.push_back(text);
        });
    }

    KeyboardState Keyboard() override {
        return ReadState([](const Json& s) {
            return KeyboardState{At(s, "/keyboard/layouts").get<std::vector<std::string>>(),
                                 At(s, "/keyboard/current").get<std::string>()};
        });
    }

    // Hosts created before the setting existed lack the key: they do not offer the choice.
    bool KeyboardChoiceOffered() override {
        return ReadState([](const Json& s) {
            const Json& keyboard = At(s, "/keyboard");
            return keyboard.contains("offerChoice") && keyboard.at("offerChoice").get<bool>();
        });
    }

    // A simulated host has no console key map to load; it still refuses a layout it does not offer.
    void LoadKeymap(const std::string& layout) override {
        ReadState([&](const Json& s) {
            RequireKnownLayout(s, layout);
            return 0;
        });
    }

    void StoreKeyboardLayout(const std::string& layout) override {
        Change([&](Json& s) {
            RequireKnownLayout(s, layout);
            s["keyboard"]["current"] = layout;
        });
    }
};

class SimFirewall : public FirewallBackend {
public:
    std::vector<FirewallRulesetState> Rulesets() override {
        return ReadState([](const Json& s) {
            std::vector<FirewallRulesetState> out;
            for (const Json& r : At(s, "/firewall/rulesets"))
                out.push_back({r.at("name").get<std::string>(), r.at("enabled").get<bool>()});
            return out;
        });
    }

    void SetRulesetEnabled(const std::string& id, bool enabled) override {
        Change([&](Json& s) {
            for (Json& r : s.at("firewall").at("rulesets")) {
                if (r.at("name") == id) {
                    r["enabled"] = enabled;
                    return;
                }
            }
            throw HostCtlException("no firewall ruleset '" + id + "'");
        });
    }
};

} // namespace

SystemBackend& SystemArea() {
    static SimSystem area;
    return area;
}

FirewallBackend& FirewallArea() {
    static SimFirewall area;
    return area;
}

} // namespace Platform::Sim
