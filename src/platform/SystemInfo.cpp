// SystemInfoImpl and FirewallRuleset: forwarders to the active system and firewall backends.
#include "platform/SystemInfo.h"

#include "platform/HostBackends.h"
#include "platform/HostCtlException.h"

namespace HostCtl::System {

void FirewallRuleset::SetEnabled(bool enabled) {
    Platform::ActiveFirewallBackend().SetRulesetEnabled(id_, enabled);
    enabled_ = enabled;
}

} // namespace HostCtl::System

namespace TesCtl::System {

std::string SystemInfoImpl::GetWelcomeMessage() {
    return Platform::ActiveSystemBackend().WelcomeMessage();
}

void SystemInfoImpl::SetSystemAlert(const std::string& text) {
    Platform::ActiveSystemBackend().RaiseAlert(text);
}

std::unique_ptr<HostCtl::System::FirewallRuleset>
SystemInfoImpl::GetFirewallRulesetById(const std::string& id) {
    for (const Platform::FirewallRulesetState& r : Platform::ActiveFirewallBackend().Rulesets())
        if (r.id == id)
            return std::make_unique<HostCtl::System::FirewallRuleset>(r.id, r.enabled);
    throw HostCtl::Lib::HostCtlException("no firewall ruleset '" + id + "'");
}

std::vector<std::string> SystemInfoImpl::GetKeyboardLayouts() {
    return Platform::ActiveSystemBackend().Keyboard().layouts;
}

std::string SystemInfoImpl::GetKeyboardLayout() {
    return Platform::ActiveSystemBackend().Keyboard().current;
}

bool SystemInfoImpl::IsKeyboardChoiceOffered() {
    return Platform::ActiveSystemBackend().KeyboardChoiceOffered();
}

void SystemInfoImpl::LoadKeyboardMappings(const std::string& layout) {
    Platform::ActiveSystemBackend().LoadKeymap(layout);
}

void SystemInfoImpl::SetKeyboardLayout(const std::string& layout) {
    Platform::ActiveSystemBackend().StoreKeyboardLayout(layout);
}

} // namespace TesCtl::System
