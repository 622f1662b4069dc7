// The System Customization menu: entries and their enabling rules, log numbering and the pager run, support
// paging, and the right-pane texts.
#include "platform/HostRoot.h"
#include "screens/LogViewer.h"
#include "screens/MenuModel.h"
#include "screens/MenuPanes.h"
#include "ui/Markup.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace Tarn {
namespace {

TEST(MenuEntries, OrderAndEnablingRules) {
    auto ids = [](const std::vector<MenuEntry>& entries) {
        std::vector<unsigned> result;
        for (const auto& e : entries)
            result.push_back(e.id);
        return result;
    };
    auto enabled = [](const std::vector<MenuEntry>& entries) {
        std::string result; // one letter per entry: y enabled, n not
        for (const auto& e : entries)
            result += e.enabled ? 'y' : 'n';
        return result;
    };
    MenuFlags none;
    EXPECT_EQ(ids(BuildMenuEntries(none)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 13, 3, 12, 3, 11, 3, 14}));
    // Without a management interface the network entries are grey; separators (3) never take the focus.
    EXPECT_EQ(enabled(BuildMenuEntries(none)), "ynnnnnynynynyny");
    MenuFlags all{true, true, false, true};
    all.keyboardChoice = true;
    EXPECT_EQ(ids(BuildMenuEntries(all)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 15, 13, 3, 12, 3, 11, 3, 14}));
    EXPECT_EQ(enabled(BuildMenuEntries(all)), "yynyyyynyynynynn") << "network boot greys the reset entry";
}

TEST(MenuLogs, OnlyExistingFilesAreNumberedAndThePagerRunsSecure) {
    const std::vector<int> numbers = NumberLogs({true, false, false, true, false, false, false});
    EXPECT_EQ(numbers, (std::vector<int>{1, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(LogListText(numbers), "{color:white}<1> {color:light-grey}Syslog{/color}\n"
                                    "{color:white}<2> {color:light-grey}Management Agent (stewd){/color}\n");
    EXPECT_STREQ(LogFiles()[LogForDigit(numbers, 2)].path, "/var/log/stewd.log");
    EXPECT_EQ(LogForDigit(numbers, 3), -1);
    EXPECT_EQ(LogForDigit(numbers, 0), -1);

    // LESSSECURE is 1 for the pager and comes back afterwards (an unset one as the empty string).
    Platform::UseSimulatedHost("/tmp/host-x");
    for (const char* before : {static_cast<const char*>(nullptr), "0", ""}) {
        before ? setenv("LESSSECURE", before, 1) : unsetenv("LESSSECURE");
        std::string path, secure;
        std::vector<std::string> argv;
        EXPECT_EQ(RunPager("/tmp/host-x/var/log/stewd.log",
                           [&](const char* program, const char* const args[]) {
                               path = program;
                               for (const char* const* a = args; *a != nullptr; ++a)
                                   argv.emplace_back(*a);
                               secure = std::getenv("LESSSECURE") ? std::getenv("LESSSECURE") : "(unset)";
                               return 3;
                           }),
                  3);
        EXPECT_EQ(path, "/tmp/host-x/bin/less");
        EXPECT_EQ(argv, (std::vector<std::string>{"less", "-cfP", "<Q> Quit </> RegExp Search <H> Help",
                                                  "/tmp/host-x/var/log/stewd.log"}));
        EXPECT_EQ(secure, "1");
        ASSERT_NE(std::getenv("LESSSECURE"), nullptr);
        EXPECT_EQ(std::string(std::getenv("LESSSECURE")), before ? before : "");
    }
    unsetenv("LESSSECURE");
    Platform::UseRealHost();
}

std::string Pane(unsigned id, const MenuPaneFacts& facts, std::string PaneText::*part = &PaneText::body) {
    return MenuPane(*StringFactory::Get("en_US"), id, facts).*part;
}

TEST(MenuSupport, LinesAndFacts) {
    EXPECT_EQ(ParseSupportLines("# comment\nline 1\n$servicetag\nline 3\n"),
              (std::vector<std::string>{"line 1", "$servicetag", "line 3"}));
    // Known key with a fact: replaced; known key without one, unknown name, bare "$": dropped.
    std::map<InfoType, std::string> facts = {{InfoType::CorlaVersion, "8.1.0 (Build 4242)"},
                                             {InfoType::ServiceTag, ""}};
    EXPECT_EQ(
        ExpandSupportLines(
            {"Version:", "$corlaversion", "$servicetag", "$ipmi", "$", "a $b", "$corlaversion \r"}, facts),
        (std::vector<std::string>{"Version:", "8.1.0 (Build 4242)", "a $b", "8.1.0 (Build 4242)"}));
}

TEST(MenuSupport, PagesInWrappedRowsKeepTheMarksAndTheReminderInView) {
    // Lines of one, two and four rows at the 40-cell body of an 80x25 menu; every page has room for the
    // tallest.
    std::vector<std::string> lines;
    for (int i = 0; i < 23; ++i)
        lines.push_back("line " + std::to_string(i) +
                        std::string(i % 3 == 0   ? 0
                                    : i % 3 == 1 ? 45
                                                 : 150,
                                    'x'));
    const StringFactory& strings = *StringFactory::Get("en_US");
    const std::string reminder = strings.GetString(TextId::ChangeDefaultPasswordReminder);
    const int width = 40;
    for (auto [emptyPassword, height] : {std::pair{true, 19}, {false, 19}, {true, 12}, {false, 7}}) {
        SCOPED_TRACE(std::to_string(height) + (emptyPassword ? " rows, empty password" : " rows"));
        MenuPaneFacts facts;
        facts.emptyPassword = emptyPassword;
        const SupportPaging paging{lines, SupportPageRows(strings, facts, width, height), width};
        std::vector<size_t> starts = {0};
        std::string shown;
        for (;;) {
            facts.supportPage = SupportPage(paging, starts.back());
            // The whole body as the pane lays it out: it must fit, marks and reminder included.
            std::string body;
            for (const auto& line : Markup::Layout(Pane(TextId::ViewSupportInformation, facts), width, 1000))
                body += Markup::PlainText(line) + "\n";
            EXPECT_LE(static_cast<int>(std::count(body.begin(), body.end(), '\n')), height) << body;
            EXPECT_EQ(body.find("<Page Up>") != std::string::npos, starts.back() > 0);
            if (emptyPassword) {
                EXPECT_NE(body.find(reminder.substr(0, 20)), std::string::npos) << body;
            }
            shown += facts.supportPage;
            const size_t next = NextSupportPage(paging, starts.back());
            EXPECT_EQ(body.find("<Page Down>") != std::string::npos, next != starts.back());
            if (next == starts.back())
                break;
            ASSERT_GT(next, starts.back());
            starts.push_back(next);
        }
        for (const auto& line : lines) { // each line appears on exactly one page
            const std::string item = "{color:light-grey}" + line + "{/color}\n";
            size_t at = shown.find(item);
            ASSERT_NE(at, std::string::npos) << line;
            EXPECT_EQ(shown.find(item, at + 1), std::string::npos) << line;
        }
        for (size_t i = starts.size() - 1; i > 0; --i) // paging up retraces the same pages
            EXPECT_EQ(PreviousSupportPage(paging, starts[i]), starts[i - 1]);
        EXPECT_EQ(PreviousSupportPage(paging, 0), 0u);
    }
}

bool StartsWith(const std::string& text, const std::string& start) {
    return text.rfind(start, 0) == 0;
}

TEST(MenuPanes, StatesAndTheLockdownFooter) {
    MenuPaneFacts facts;
    facts.lockdown = LockdownState::Disabled;
    EXPECT_EQ(Pane(5, facts, &PaneText::title), "Configure Password");
    EXPECT_EQ(Pane(5, facts),
              "{color:white}Set{/color}\n\nTo prevent unauthorized access to this system, set "
              "the password for the user.");
    facts.emptyPassword = true;
    EXPECT_TRUE(StartsWith(Pane(5, facts), "{color:white}Not set{/color}\n\n"));
    EXPECT_TRUE(StartsWith(Pane(6, facts), "{color:white}Disabled{/color}\n\nWhen enabled"));
    facts.lockdown = LockdownState::Enabled;
    EXPECT_TRUE(StartsWith(Pane(6, facts), "{color:white}Enabled{/color}"));
    facts.lockdown = LockdownState::Unknown;
    EXPECT_TRUE(StartsWith(Pane(6, facts), "{color:white}Unknown{/color}"));

    const std::string logOut =
        "{align:right}{color:white}<Esc>{/color}{color:light-grey} Log Out{/color}{/align}";
    EXPECT_EQ(Pane(5, facts, &PaneText::footer),
              "{color:white}<Enter>{/color}{color:light-grey} Change{/color}" + logOut);
    // The lockdown footer never closes the colour of "<Enter>".
    EXPECT_EQ(Pane(6, facts, &PaneText::footer),
              "{color:white}<Enter>{color:light-grey} Change{/color}" + logOut);
    EXPECT_EQ(Pane(11, facts, &PaneText::footer), logOut);
}

TEST(MenuPanes, BodiesCarryTheirFactsAndTheEmptyPasswordReminder) {
    MenuPaneFacts facts;
    facts.hostname = "host01";
    facts.ipv4Address = "192.0.2.10";
    facts.ipv6Addresses = {"2001:db8::10/64", "fe80::1/64"};
    facts.keyboardLayout = "US Default";
    EXPECT_EQ(Pane(7, facts),
              "Hostname:\n  {color:white}host01{/color}\n"
              "\nIPv4 Address:\n  {color:white}192.0.2.10{/color}\n"
              "\nIPv6 Addresses:\n  {color:white}2001:db8::10/64{/color}\n  {color:white}fe80::1/64{/color}\n"
              "\nTo view or modify this host's management network settings in detail, press <Enter>.");
    EXPECT_NE(Pane(15, facts).find("press <Enter>.\n\n{color:light-grey}US Default{/color}"),
              std::string::npos);
    facts.ipv4Address.clear();
    facts.ipv6Addresses.clear();
    EXPECT_EQ(Pane(7, facts).find("IPv"), std::string::npos);

    const std::string reminder = "Change default password to prevent unauthorized access";
    facts.supportPage = "{color:light-grey}line{/color}\n{align:right}<Page Down>{/align}\n";
    facts.logList = "<1> Syslog\n";
    for (unsigned id : {5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u, 15u}) {
        facts.emptyPassword = false;
        EXPECT_EQ(Pane(id, facts).find(reminder), std::string::npos) << id;
        facts.emptyPassword = true;
        // One blank row above the reminder, whether or not the body ends with a line break.
        const std::string body = Pane(id, facts);
        EXPECT_TRUE(body.ends_with("\n\n" + reminder)) << id;
        EXPECT_FALSE(body.ends_with("\n\n\n" + reminder)) << id;
    }
}

} // namespace
} // namespace Tarn
