// Pane texts of the System Customization menu. The footers are kept exactly as the console has always shown
// them, including the one whose "<Enter>" colour is never closed.
#include "screens/MenuPanes.h"

#include "ui/StringFactory.h"

namespace Tarn {
namespace {

constexpr const char* kLogOut =
    "{align:right}{color:white}<Esc>{/color}{color:light-grey} Log Out{/color}{/align}";

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
        return 119;
    case LockdownState::Disabled:
        return 120;
    case LockdownState::Unknown:
        break;
    }
    return 34;
}

} // namespace

std::string ManagementSummary(const StringFactory& strings, const MenuPaneFacts& facts) {
    std::string text = std::string(strings.GetString(40)) + ":\n  " + White(facts.hostname) + "\n";
    if (!facts.ipv4Address.empty())
        text += "\n" + std::string(strings.GetString(35)) + ":\n  " + White(facts.ipv4Address) + "\n";
    if (!facts.ipv6Addresses.empty()) {
        text += "\n" + std::string(strings.GetString(36)) + ":\n";
        for (const std::string& address : facts.ipv6Addresses)
            text += "  " + White(address) + "\n";
    }
    return text;
}

PaneText MenuPane(const StringFactory& strings, unsigned id, const MenuPaneFacts& facts) {
    PaneText pane;
    if (id == 3)
        return pane;
    pane.title = strings.GetString(id);
    auto text = [&](unsigned entry) { return std::string(strings.GetString(entry)); };
    const char* action = nullptr; // footer part left of "<Esc> Log Out"; none for the view-only entries
    switch (id) {
    case 5:
        pane.body = White(text(facts.emptyPassword ? 118 : 117)) + "\n\n" + text(21);
        action = kFooterChange;
        break;
    case 6:
        pane.body = White(text(LockdownTextId(facts.lockdown))) + "\n\n" + text(22);
        action = kFooterLockdown;
        break;
    case 7:
        pane.body = ManagementSummary(strings, facts) + "\n" + text(23);
        action = kFooterMore;
        break;
    case 8:
        pane.body = text(24);
        action = kFooterRestart;
        break;
    case 9:
        pane.body = text(25);
        action = kFooterRunTest;
        break;
    case 10:
        pane.body = text(26);
        action = kFooterRestart; // the same words as entry 8, on purpose
        break;
    case 11:
        pane.body = facts.supportPage;
        break;
    case 12:
        pane.body = facts.logList + "\n" + text(27);
        break;
    case 13:
        pane.body = text(28);
        action = kFooterMore;
        break;
    case 14:
        pane.body = text(29);
        action = kFooterReset;
        break;
    case 15:
        pane.body = text(32) + "\n\n{color:light-grey}" + facts.keyboardLayout + "{/color}";
        action = kFooterMore;
        break;
    default:
        break;
    }
    pane.footer = std::string(action != nullptr ? action : "") + kLogOut;
    // The reminder stays in view whatever the operator looks at, until the password is set.
    if (facts.emptyPassword)
        pane.body += "\n\n" + text(33);
    return pane;
}

} // namespace Tarn
