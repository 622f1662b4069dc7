// System facts and settings of the host: welcome message, system alerts, keyboard layouts and firewall
// rulesets.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace HostCtl::System {

// One firewall ruleset as read from the host; Enable/Disable change the host at once.
class FirewallRuleset {
public:
    FirewallRuleset(std::string id, bool enabled) : id_(std::move(id)), enabled_(enabled) {}
    const std::string& GetId() const { return id_; }
    bool IsEnabled() const { return enabled_; }
    void Enable() { SetEnabled(true); }
    void Disable() { SetEnabled(false); }
    void SetEnabled(bool enabled);

private:
    std::string id_;
    bool enabled_;
};

} // namespace HostCtl::System

namespace TesCtl::System {

// All operations throw HostCtl::Lib::HostCtlException on a backend failure.
class SystemInfoImpl {
public:
    // The administrator's custom welcome text; empty when none is set.
    std::string GetWelcomeMessage();
    void SetSystemAlert(const std::string& text);
    // Throws when the host has no ruleset with that id.
    std::unique_ptr<HostCtl::System::FirewallRuleset> GetFirewallRulesetById(const std::string& id);

    std::vector<std::string> GetKeyboardLayouts();
    // The configured layout name.
    std::string GetKeyboardLayout();
    // Loads the console key map of `layout`; SetKeyboardLayout stores it as the configured one.
    void LoadKeyboardMappings(const std::string& layout);
    void SetKeyboardLayout(const std::string& layout);
    // Whether the host asks the console to offer the keyboard layout choice (at login and in the menu).
    bool IsKeyboardChoiceOffered();
};

} // namespace TesCtl::System
