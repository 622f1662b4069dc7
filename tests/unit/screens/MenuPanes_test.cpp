// Right-pane texts of the System Customization menu: states, footers kept as shown, the password reminder.
#include "screens/MenuPanes.h"

#include "ui/StringFactory.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

const StringFactory& Strings() {
    return *StringFactory::Get("en_US");
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

constexpr const char* kLogOut =
    "{align:right}{color:white}<Esc>{/color}{color:light-grey} Log Out{/color}{/align}";

TEST(MenuPanes, PasswordAndLockdownStates) {
    MenuPaneFacts facts;
    facts.lockdown = LockdownState::Disabled;
    PaneText password = MenuPane(Strings(), 5, facts);
    EXPECT_EQ(password.title, "Configure Password");
    EXPECT_EQ(password.body,
              "{color:white}Set{/color}\n\nTo prevent unauthorized access to this system, set the "
              "password for the user.");

    facts.emptyPassword = true;
    password = MenuPane(Strings(), 5, facts);
    EXPECT_EQ(password.body.rfind("{color:white}Not set{/color}\n\n", 0), 0u) << password.body;

    EXPECT_EQ(MenuPane(Strings(), 6, facts).body.rfind("{color:white}Disabled{/color}\n\nWhen enabled", 0),
              0u);
    facts.lockdown = LockdownState::Enabled;
    EXPECT_EQ(MenuPane(Strings(), 6, facts).body.rfind("{color:white}Enabled{/color}", 0), 0u);
    facts.lockdown = LockdownState::Unknown;
    EXPECT_EQ(MenuPane(Strings(), 6, facts).body.rfind("{color:white}Unknown{/color}", 0), 0u);
}

TEST(MenuPanes, FootersAreKeptExactly) {
    MenuPaneFacts facts;
    const std::string change = "{color:white}<Enter>{/color}{color:light-grey} Change{/color}";
    const std::string more = "{color:white}<Enter>{/color}{color:light-grey} More{/color}";
    const std::string restart = "{color:white}<Enter>{/color} {color:light-grey}Restart";
    EXPECT_EQ(MenuPane(Strings(), 5, facts).footer, change + kLogOut);
    // The lockdown footer never closes the colour of "<Enter>".
    EXPECT_EQ(MenuPane(Strings(), 6, facts).footer,
              std::string("{color:white}<Enter>{color:light-grey} Change{/color}") + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 7, facts).footer, more + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 8, facts).footer, restart + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 10, facts).footer, restart + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 9, facts).footer,
              std::string("{color:white}<Enter>{/color}{color:light-grey} Run Test{/color}") + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 13, facts).footer, more + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 15, facts).footer, more + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 14, facts).footer,
              std::string("{color:white}<Enter>{/color}{color:light-grey} Reset{/color}") + kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 11, facts).footer, kLogOut);
    EXPECT_EQ(MenuPane(Strings(), 12, facts).footer, kLogOut);
}

TEST(MenuPanes, BodiesCarryTheirFacts) {
    MenuPaneFacts facts;
    facts.hostname = "host01";
    facts.ipv4Address = "192.0.2.10";
    facts.ipv6Addresses = {"2001:db8::10/64", "fe80::1/64"};
    facts.keyboardLayout = "US Default";
    facts.logList = "{color:white}<1> {color:light-grey}Syslog{/color}\n";
    facts.supportPage = "{color:light-grey}Orvane Support{/color}\n";

    const std::string management = MenuPane(Strings(), 7, facts).body;
    EXPECT_EQ(management,
              "Hostname:\n  {color:white}host01{/color}\n"
              "\nIPv4 Address:\n  {color:white}192.0.2.10{/color}\n"
              "\nIPv6 Addresses:\n  {color:white}2001:db8::10/64{/color}\n  {color:white}fe80::1/64{/color}\n"
              "\nTo view or modify this host's management network settings in detail, press <Enter>.");
    facts.ipv4Address.clear();
    facts.ipv6Addresses.clear();
    EXPECT_FALSE(Contains(MenuPane(Strings(), 7, facts).body, "IPv"));

    EXPECT_EQ(MenuPane(Strings(), 12, facts).body,
              facts.logList +
                  "\nPress the corresponding key to view a log.\nPress <Q> to return to this screen.");
    EXPECT_EQ(MenuPane(Strings(), 11, facts).body, facts.supportPage);
    EXPECT_TRUE(Contains(MenuPane(Strings(), 15, facts).body,
                         "press <Enter>.\n\n{color:light-grey}US Default{/color}"));
    EXPECT_EQ(MenuPane(Strings(), 3, facts).title, "");
}

TEST(MenuPanes, EmptyPasswordReminderOnEveryPane) {
    MenuPaneFacts facts;
    const std::string reminder = "Change default password to prevent unauthorized access";
    for (unsigned id : {5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u, 15u}) {
        facts.emptyPassword = false;
        EXPECT_FALSE(Contains(MenuPane(Strings(), id, facts).body, reminder)) << id;
        facts.emptyPassword = true;
        EXPECT_TRUE(Contains(MenuPane(Strings(), id, facts).body, reminder)) << id;
    }
}

} // namespace
} // namespace Tarn
