// Real host: the version record from os-release and uname; welcome message, alerts, keyboard layouts,
// advanced options and firewall rulesets have no cheap Linux counterpart and are reported as unavailable.
#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/LinuxHost.h"

#include <sys/utsname.h>

namespace Platform::Linux {
namespace {

using HostCtl::Lib::HostCtlException;

std::string Unquote(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.substr(1, value.size() - 2);
    return std::string(value);
}

class LinuxSystem : public SystemBackend {
public:
    SystemVersion Version() override {
        std::string text;
        if (!Common::ReadTextFile(Platform::HostPath("/etc/os-release"), text))
            text.clear();
        OsRelease os = ParseOsRelease(text);
        utsname uts{};
        if (uname(&uts) != 0)
            throw HostCtlException("uname failed");
        if (os.name.empty())
            os.name = uts.sysname;
        return {os.name, os.versionId, uts.release, uts.version};
    }

    // Linux has no audit-mode boot option.
    std::array<uint8_t, 4> BootOption() override { NotAvailable(); }
    std::string WelcomeMessage() override { NotAvailable(); }
    void RaiseAlert(const std::string&) override { NotAvailable(); }
    KeyboardState Keyboard() override { NotAvailable(); }
    // The layout choice needs the keyboard calls above, which a Linux host lacks.
    bool KeyboardChoiceOffered() override { return false; }
    void LoadKeymap(const std::string&) override { NotAvailable(); }
    void StoreKeyboardLayout(const std::string&) override { NotAvailable(); }
};

class LinuxOptions : public OptionBackend {
public:
    std::optional<OptionValue> Find(const std::string&) override { NotAvailable(); }
    void SetInteger(const std::string&, int64_t) override { NotAvailable(); }
    bool HasUserOption(const std::string&) override { NotAvailable(); }
};

class LinuxFirewall : public FirewallBackend {
public:
    std::vector<FirewallRulesetState> Rulesets() override { NotAvailable(); }
    void SetRulesetEnabled(const std::string&, bool) override { NotAvailable(); }
};

} // namespace

OsRelease ParseOsRelease(std::string_view text) {
    OsRelease out;
    while (!text.empty()) {
        size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        size_t eq = line.find('=');
        if (eq == std::string_view::npos || line.starts_with('#'))
            continue;
        std::string_view key = line.substr(0, eq);
        if (key == "NAME")
            out.name = Unquote(line.substr(eq + 1));
        else if (key == "VERSION_ID")
            out.versionId = Unquote(line.substr(eq + 1));
    }
    return out;
}

SystemBackend& SystemArea() {
    static LinuxSystem area;
    return area;
}

OptionBackend& OptionArea() {
    static LinuxOptions area;
    return area;
}

FirewallBackend& FirewallArea() {
    static LinuxFirewall area;
    return area;
}

} // namespace Platform::Linux
