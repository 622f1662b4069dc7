// The System Customization menu table. The footers are kept exactly as the console has always shown them,
// including the one whose "<Enter>" colour is never closed and the "Restart" one whose colour runs on.
#include "screens/MenuTable.h"

#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kFooterChange = "{color:white}<Enter>{/color}{color:light-grey} Change{/color}";
constexpr const char* kFooterLockdown = "{color:white}<Enter>{color:light-grey} Change{/color}";
constexpr const char* kFooterMore = "{color:white}<Enter>{/color}{color:light-grey} More{/color}";
constexpr const char* kFooterRestart = "{color:white}<Enter>{/color} {color:light-grey}Restart";
constexpr const char* kFooterRunTest = "{color:white}<Enter>{/color}{color:light-grey} Run Test{/color}";
constexpr const char* kFooterReset = "{color:white}<Enter>{/color}{color:light-grey} Reset{/color}";

std::string White(const std::string& text) {
    return "{color:white}" + text + "{/color}";
}

unsigned LockdownTextId(LockdownState state) {
    switch (state) {
    case LockdownState::Enabled:
        return TextId::Enabled;
    case LockdownState::Disabled:
        return TextId::Disabled;
    case LockdownState::Unknown:
        break;
    }
    return TextId::Unknown;
}

bool Lockdown(const MenuFlags& f) {
    return f.lockdownAvailable;
}
bool Management(const MenuFlags& f) {
    return f.managementInterface;
}
bool KeyboardChoice(const MenuFlags& f) {
    return f.keyboardChoice;
}
bool NoNetworkBoot(const MenuFlags& f) {
    return !f.networkBoot;
}

std::string PasswordBody(const StringFactory& s, const MenuPaneFacts& f) {
    return White(s.GetString(f.emptyPassword ? TextId::NotSet : TextId::Set)) + "\n\n" +
           s.GetString(TextId::PasswordPaneHelp);
}
std::string LockdownBody(const StringFactory& s, const MenuPaneFacts& f) {
    return White(s.GetString(LockdownTextId(f.lockdown))) + "\n\n" + s.GetString(TextId::LockdownPaneHelp);
}
std::string ManagementBody(const StringFactory& s, const MenuPaneFacts& f) {
    return ManagementSummary(s, f) + "\n" + s.GetString(TextId::ManagementNetworkPaneHelp);
}
std::string SupportBody(const StringFactory&, const MenuPaneFacts& f) {
    return f.supportPage;
}
std::string LogBody(const StringFactory& s, const MenuPaneFacts& f) {
    return f.logList + "\n" + s.GetString(TextId::LogListHelp);
}
std::string KeyboardBody(const StringFactory& s, const MenuPaneFacts& f) {
    return s.GetString(TextId::KeyboardPaneHelp) + std::string("\n\n{color:light-grey}") + f.keyboardLayout +
           "{/color}";
}

constexpr unsigned kBlank = TextId::Blank;

} // namespace

const std::vector<MenuRow>& MenuTable() {
    // clang-format off
    static const std::vector<MenuRow> table = {
        // id                                  listed          enabled       body            help                              footer           open                          changes lockdown
        {TextId::ConfigurePassword,            nullptr,        nullptr,      PasswordBody,   0,                                kFooterChange,   OpenPasswordChange,            false},
        {TextId::ConfigureLockdownMode,        nullptr,        Lockdown,     LockdownBody,   0,                                kFooterLockdown, OpenLockdown,                  true},
        {kBlank,                               nullptr,        nullptr,      nullptr,        0,                                nullptr,         nullptr,                       false},
        {TextId::ConfigureManagementNetwork,   nullptr,        Management,   ManagementBody, 0,                                kFooterMore,     OpenNetworkWindow,             false},
        {TextId::RestartManagementNetwork,     nullptr,        Management,   nullptr,        TextId::RestartNetworkPaneHelp,   kFooterRestart,  OpenRestartManagementNetwork,  false},
        {TextId::TestManagementNetwork,        nullptr,        Management,   nullptr,        TextId::TestNetworkPaneHelp,      kFooterRunTest,  OpenTestManagementNetwork,     false},
        // The same "Restart" words as the restart entry, on purpose.
        {TextId::NetworkRestoreOptions,        nullptr,        nullptr,      nullptr,        TextId::NetworkRestorePaneHelp,   kFooterRestart,  OpenNetworkRestoreOptions,     false},
        {kBlank,                               nullptr,        nullptr,      nullptr,        0,                                nullptr,         nullptr,                       false},
        {TextId::ConfigureKeyboard,            KeyboardChoice, nullptr,      KeyboardBody,   0,                                kFooterMore,     OpenKeyboard,                  false},
        {TextId::TroubleshootingOptions,       nullptr,        nullptr,      nullptr,        TextId::TroubleshootingPaneHelp,  kFooterMore,     OpenTroubleshooting,           false},
        {kBlank,                               nullptr,        nullptr,      nullptr,        0,                                nullptr,         nullptr,                       false},
        {TextId::ViewSystemLogs,               nullptr,        nullptr,      LogBody,        0,                                nullptr,         nullptr,                       false},
        {kBlank,                               nullptr,        nullptr,      nullptr,        0,                                nullptr,         nullptr,                       false},
        {TextId::ViewSupportInformation,       nullptr,        nullptr,      SupportBody,    0,                                nullptr,         nullptr,                       false},
        {kBlank,                               nullptr,        nullptr,      nullptr,        0,                                nullptr,         nullptr,                       false},
        {TextId::ResetSystemConfiguration,     nullptr,        NoNetworkBoot, nullptr,       TextId::ResetSystemPaneHelp,      kFooterReset,    OpenSystemReset,               true},
    };
    // clang-format on
    return table;
}

const MenuRow* FindMenuRow(unsigned id) {
    for (const MenuRow& row : MenuTable())
        if (row.id == id)
            return &row;
    return nullptr;
}

} // namespace Tarn
