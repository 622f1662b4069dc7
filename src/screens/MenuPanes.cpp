// Pane texts of the System Customization menu, composed from the rows of the menu table.
#include "screens/MenuPanes.h"

#include "screens/MenuTable.h"
#include "ui/Markup.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <algorithm>

namespace Tarn {
namespace {

constexpr const char* kLogOut =
    "{align:right}{color:white}<Esc>{/color}{color:light-grey} Log Out{/color}{/align}";

std::string White(const std::string& text) {
    return "{color:white}" + text + "{/color}";
}

} // namespace

std::string ManagementSummary(const StringFactory& strings, const MenuPaneFacts& facts) {
    std::string text =
        std::string(strings.GetString(TextId::Hostname)) + ":\n  " + White(facts.hostname) + "\n";
    if (!facts.ipv4Address.empty())
        text += "\n" + std::string(strings.GetString(TextId::Ipv4Address)) + ":\n  " +
                White(facts.ipv4Address) + "\n";
    if (!facts.ipv6Addresses.empty()) {
        text += "\n" + std::string(strings.GetString(TextId::Ipv6Addresses)) + ":\n";
        for (const std::string& address : facts.ipv6Addresses)
            text += "  " + White(address) + "\n";
    }
    return text;
}

PaneText MenuPane(const StringFactory& strings, unsigned id, const MenuPaneFacts& facts) {
    PaneText pane;
    if (id == TextId::Blank)
        return pane;
    pane.title = strings.GetString(id);
    const MenuRow* row = FindMenuRow(id);
    const char* action = nullptr; // footer part left of "<Esc> Log Out"; none for the view-only entries
    if (row != nullptr) {
        pane.body =
            row->body != nullptr ? row->body(strings, facts) : std::string(strings.GetString(row->help));
        action = row->footer;
    }
    pane.footer = std::string(action != nullptr ? action : "") + kLogOut;
    // The reminder stays in view whatever the operator looks at, until the password is set.
    // One blank row above it, also below a body that ends with a line break (support page, log list).
    if (facts.emptyPassword) {
        pane.body += pane.body.ends_with('\n') ? "\n" : "\n\n";
        pane.body += strings.GetString(TextId::ChangeDefaultPasswordReminder);
    }
    return pane;
}

size_t SupportPageRows(const StringFactory& strings, const MenuPaneFacts& facts, int width, int height) {
    MenuPaneFacts oneRow = facts;
    oneRow.supportPage = "x\n";
    const std::string body = MenuPane(strings, TextId::ViewSupportInformation, oneRow).body;
    const int below = static_cast<int>(Markup::Layout(body, std::max(width, 1), 1 << 16).size()) - 1;
    return static_cast<size_t>(std::max(height - below, 0));
}

} // namespace Tarn
