// Menu entries and their enabling rules, log numbering, support paging.
#include "screens/MenuModel.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace Tarn {
namespace {

std::vector<unsigned> Ids(const std::vector<MenuEntry>& entries) {
    std::vector<unsigned> ids;
    for (const auto& e : entries)
        ids.push_back(e.id);
    return ids;
}

bool Enabled(const std::vector<MenuEntry>& entries, unsigned id) {
    for (const auto& e : entries)
        if (e.id == id)
            return e.enabled;
    ADD_FAILURE() << "no entry " << id;
    return false;
}

TEST(MenuEntries, OrderAndKeyboardEntry) {
    MenuFlags flags;
    EXPECT_EQ(Ids(BuildMenuEntries(flags)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 13, 3, 12, 3, 11, 3, 14}));
    flags.keyboardChoice = true;
    EXPECT_EQ(Ids(BuildMenuEntries(flags)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 15, 13, 3, 12, 3, 11, 3, 14}));
}

TEST(MenuEntries, EnablingRules) {
    MenuFlags none;
    auto entries = BuildMenuEntries(none);
    EXPECT_FALSE(Enabled(entries, 6));
    for (unsigned id : {7u, 8u, 9u})
        EXPECT_FALSE(Enabled(entries, id)) << id;
    EXPECT_TRUE(Enabled(entries, 14));
    for (const auto& e : entries) {
        if (e.id == 3) {
            EXPECT_FALSE(e.enabled);
        }
    }

    MenuFlags all{true, true, false, true};
    entries = BuildMenuEntries(all);
    EXPECT_TRUE(Enabled(entries, 6));
    for (unsigned id : {7u, 8u, 9u})
        EXPECT_TRUE(Enabled(entries, id)) << id;
    EXPECT_FALSE(Enabled(entries, 14)); // network boot
}

TEST(MenuLogs, OnlyExistingFilesAreNumbered) {
    // syslog.log and stewd.log only
    std::vector<bool> exists = {true, false, false, true, false, false, false};
    auto numbers = NumberLogs(exists);
    EXPECT_EQ(numbers, (std::vector<int>{1, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(LogListText(numbers), "{color:white}<1> {color:light-grey}Syslog{/color}\n"
                                    "{color:white}<2> {color:light-grey}Management Agent (stewd){/color}\n");
    EXPECT_STREQ(LogFiles()[LogForDigit(numbers, 2)].path, "/var/log/stewd.log");
    EXPECT_EQ(LogForDigit(numbers, 3), -1);
    EXPECT_EQ(LogForDigit(numbers, 0), -1);
}

TEST(MenuLogs, TableKeepsItsLabels) {
    ASSERT_EQ(LogFiles().size(), 7u);
    EXPECT_STREQ(LogFiles()[5].label, "High Availibility Agent (haagd)");
    EXPECT_STREQ(LogFiles()[6].path, "/var/log/obed.log");
}

TEST(MenuSupport, CommentsSkippedAndPagesMarked) {
    auto lines = ParseSupportLines("# comment\nline 1\nline 2\n$servicetag\nline 4\nline 5\n");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[2], "$servicetag");

    std::string first = SupportPage(lines, 0, 4);
    EXPECT_EQ(first.find("<Page Up>"), std::string::npos);
    EXPECT_NE(first.find("<Page Down>"), std::string::npos);
    EXPECT_NE(first.find("line 1"), std::string::npos);

    std::string last = SupportPage(lines, 3, 4);
    EXPECT_NE(last.find("<Page Up>"), std::string::npos);
    EXPECT_EQ(last.find("<Page Down>"), std::string::npos);
    EXPECT_NE(last.find("line 5"), std::string::npos);
}

TEST(MenuSupport, DollarLinesBecomeHostFacts) {
    std::map<InfoType, std::string> facts = {{InfoType::CorlaVersion, "8.1.0 (Build 4242)"},
                                             {InfoType::ServiceTag, ""}};
    auto lines = ExpandSupportLines(
        {"Version:", "$corlaversion", "$servicetag", "$ipmi", "$", "a $b", "$corlaversion \r"}, facts);
    // Known key with a fact: replaced; known key without one, unknown name, bare "$": dropped.
    EXPECT_EQ(lines,
              (std::vector<std::string>{"Version:", "8.1.0 (Build 4242)", "a $b", "8.1.0 (Build 4242)"}));
}

TEST(MenuSupport, PagingForwardAndBackCoversEveryLineOnce) {
    std::vector<std::string> lines;
    for (int i = 0; i < 23; ++i)
        lines.push_back("line " + std::to_string(i));
    for (size_t rows : {3u, 5u, 8u, 30u}) {
        SCOPED_TRACE(rows);
        std::vector<size_t> starts = {0};
        std::string shown;
        for (;;) {
            shown += SupportPage(lines, starts.back(), rows);
            size_t next = NextSupportPage(lines, starts.back(), rows);
            if (next == starts.back())
                break;
            ASSERT_GT(next, starts.back());
            starts.push_back(next);
        }
        // Each line appears on exactly one page.
        for (const auto& line : lines) {
            const std::string item = "{color:light-grey}" + line + "{/color}\n";
            size_t at = shown.find(item);
            ASSERT_NE(at, std::string::npos) << line;
            EXPECT_EQ(shown.find(item, at + 1), std::string::npos) << line;
        }
        // Paging up retraces the same pages.
        for (size_t i = starts.size() - 1; i > 0; --i)
            EXPECT_EQ(PreviousSupportPage(starts[i], rows), starts[i - 1]);
        EXPECT_EQ(PreviousSupportPage(0, rows), 0u);
        // No page is taller than its rows.
        for (size_t start : starts) {
            std::string page = SupportPage(lines, start, rows);
            EXPECT_LE(static_cast<size_t>(std::count(page.begin(), page.end(), '\n')),
                      std::max<size_t>(rows, 3));
        }
    }
}

} // namespace
} // namespace Tarn
