// The backend seam of the host-control classes for system, hardware, options, smart cards, resources and
// firewall: one small data-shaped interface per area (read a snapshot, apply one change), and accessors that
// pick the simulated or the real-host implementation. The TesCtl classes only forward to these.
#pragma once

#include "platform/SysInfo.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Platform {

struct KeyboardState {
    std::vector<std::string> layouts;
    std::string current;
};

class SystemBackend {
public:
    virtual ~SystemBackend() = default;
    virtual SystemVersion Version() = 0;
    virtual std::array<uint8_t, 4> BootOption() = 0;
    virtual std::string WelcomeMessage() = 0;
    virtual void RaiseAlert(const std::string& text) = 0;
    virtual KeyboardState Keyboard() = 0;
    virtual bool KeyboardChoiceOffered() = 0;
    virtual void LoadKeymap(const std::string& layout) = 0;
    virtual void StoreKeyboardLayout(const std::string& layout) = 0;
};

struct PlatformIdentity {
    std::string vendor;
    std::string product;
};

struct CpuFacts {
    int packages = 0;
    std::string model;
};

struct MemoryFacts {
    uint64_t totalPages = 0;
    uint64_t pageSize = 0;
};

class HardwareBackend {
public:
    virtual ~HardwareBackend() = default;
    virtual PlatformIdentity Identity() = 0;
    virtual CpuFacts Cpu() = 0;
    virtual MemoryFacts Memory() = 0;
};

using OptionValue = std::variant<int64_t, std::string, bool>;

class OptionBackend {
public:
    virtual ~OptionBackend() = default;
    // Empty when no advanced option has that path.
    virtual std::optional<OptionValue> Find(const std::string& path) = 0;
    virtual void SetInteger(const std::string& path, int64_t value) = 0;
    virtual bool HasUserOption(const std::string& name) = 0;
};

struct SmartCardSlotState {
    int id = 0;
    std::optional<std::string> tokenUser; // set when a token sits in the slot
};

class SmartCardBackend {
public:
    virtual ~SmartCardBackend() = default;
    virtual std::vector<SmartCardSlotState> Slots() = 0;
};

class ResourceBackend {
public:
    virtual ~ResourceBackend() = default;
    virtual bool HasRunningVirtualMachines() = 0;
};

struct FirewallRulesetState {
    std::string id;
    bool enabled = false;
};

class FirewallBackend {
public:
    virtual ~FirewallBackend() = default;
    virtual std::vector<FirewallRulesetState> Rulesets() = 0;
    virtual void SetRulesetEnabled(const std::string& id, bool enabled) = 0;
};

// The implementation for the host selected at start-up (Platform::ActiveBackends()).
SystemBackend& ActiveSystemBackend();
HardwareBackend& ActiveHardwareBackend();
OptionBackend& ActiveOptionBackend();
SmartCardBackend& ActiveSmartCardBackend();
ResourceBackend& ActiveResourceBackend();
FirewallBackend& ActiveFirewallBackend();

} // namespace Platform
